// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cwchar>
#include <malloc.h>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <QPainter>

#include "keldriver/KelDriver.h"
#include "support/ImageBytes.h"

// Plots as a driver makes them, from the renderer's birth to its end.

namespace {

void drawLines(HT_Renderer& renderer, double step) {
    double dashes[] = {6, 3};
    renderer.SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
    renderer.SetLineWeight(2.5);
    constexpr int corners = 60;
    std::vector<HT_Double_Point> curve;
    curve.reserve(corners);
    for (int i = 0; i < corners; ++i) {
        curve.push_back({i * step, 60 + 40 * std::sin(i * 0.3)});
    }
    renderer.DrawPolyline(curve.data(), static_cast<int>(curve.size()));
    renderer.SetLineType(HT_PlotStyle::LineTypeCustom, dashes, 2);
    renderer.DrawArc({100, 100}, 50, 30, 0.4, 0.2, 4.0);
}

void clipTo(HT_Renderer& renderer, HT_Double_Point from, HT_Double_Point to) {
    renderer.SetClipRgn(KelDriver::Kit::RegionPtr(KelDriver::HT_CreateRectRgnData(from, to)).get());
}

void drawAreas(HT_Renderer& renderer) {
    clipTo(renderer, {20, 20}, {170, 130});
    const HT_Double_Point triangle[] = {{10, 10}, {190, 75}, {40, 140}};
    for (const auto style : {HT_PlotStyle::FillSolid, HT_PlotStyle::FillSquares, HT_PlotStyle::FillDiagCross}) {
        renderer.SetFillStyle(style);
        renderer.SetColor(0x00204080U + static_cast<unsigned>(style) * 0x20U);
        renderer.FillPolygon(triangle, 3);
    }
    clipTo(renderer, {0, 0}, {200, 150});
}

void drawTexts(HT_Renderer& renderer, int number) {
    HT_Font font{};
    font.height = 18;
    std::wcscpy(font.faceName, L"DejaVu Sans");
    for (std::wstring text : {L"Sheet " + std::to_wstring(number), std::wstring(L"\u042F\u4E2D\u0639")}) {
        renderer.DrawText(text.data(), 0, font, {30, 40}, 0.3, 1, nullptr);
    }
}

void drawPicture(HT_Renderer& renderer) {
    QImage pixels(8, 8, QImage::Format_RGB32);
    pixels.fill(qRgb(200, 30, 60));
    const HT_RasterImagePtr image = decode(imageBytes(pixels));
    HT_RasterImage_Record record{image.get(), 120, 20, 4, {}, 4};
    renderer.DrawImage(&record);
}

/// The page that a plot leaves, with this number on it.
QImage plot(int number) {
    QImage page(200, 150, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    const KelDriver::Kit::RenderSession renderer(painter);
    drawLines(*renderer, 1.0 + number % 3);
    drawAreas(*renderer);
    drawTexts(*renderer, number);
    drawPicture(*renderer);
    return page;
}

TEST(WholePlots, OfTwoThreadsAreThoseOfOne) {
    constexpr int plots = 40;
    std::vector<QImage> alone;
    alone.reserve(plots);
    for (int i = 0; i < plots; ++i) {
        alone.push_back(plot(i));
    }
    std::vector<std::vector<QImage>> pages(2);
    std::vector<std::thread> threads;
    threads.reserve(pages.size());
    for (std::vector<QImage>& own : pages) {
        threads.emplace_back([&own] {
            for (int i = 0; i < plots; ++i) {
                own.push_back(plot(i));
            }
        });
    }
    std::for_each(threads.begin(), threads.end(), [](std::thread& thread) { thread.join(); });
    EXPECT_NE(alone[0], alone[3]) << "they differ in the number on them";
    EXPECT_EQ(alone[0].pixelColor(130, 30), QColor(200, 30, 60)) << "the picture";
    EXPECT_EQ(pages[0], alone);
    EXPECT_EQ(pages[1], alone);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // which have allocators of their own
/// From the environment, so that the same test may run for long; 0 where that holds no number.
int plotsToMake() {
    const char* const given = std::getenv("KELDRIVER_PLOTS");
    return given == nullptr ? 200 : std::atoi(given);
}

/// Bytes, those of large blocks included, which the allocator maps one by one.
size_t bytesInUse() {
    const struct mallinfo2 all = mallinfo2();
    return all.uordblks + all.hblkhd;
}

TEST(WholePlots, LeaveNothingInMemory) {
    constexpr size_t slack = 16 << 10; // bytes; caches of fonts fill up in the first plots
    const int plots = plotsToMake();
    ASSERT_GE(plots, 100);
    size_t early = 0;
    for (int i = 0; i < plots; ++i) {
        plot(i % 10);
        if (i == plots / 10) {
            early = bytesInUse();
        }
    }
    const size_t late = bytesInUse();
    EXPECT_LT(late, early + slack) << plots << " plots, in use early on: " << early;
    RecordProperty("bytes_early", std::to_string(early));
    RecordProperty("bytes_late", std::to_string(late));
}
#endif

} // namespace
