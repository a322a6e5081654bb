// SPDX-License-Identifier: BSD-3-Clause

// Texts through the renderer and painted by hand, in one run, and how texts are split by font.
//
// Names read BM_<picture>/<ours or hand>/<text>. DrawText is a text by itself, DrawTextAgain the same in a plot that
// repeats the text, DrawNumbers a plot of numbers that all differ.
// BM_SubText/ours/<text> stands alone; its counter "characters" is a rate.

#include <cmath>
#include <cwchar>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include "GuiBenchmarks.h"
#include "keldriver/KelDriver.h"

namespace {

constexpr double plotScale = 1.25;
constexpr int pageSize = 1000;
constexpr double height = 40;
constexpr double degrees = 30;
constexpr double widthFactor = 1.5;
constexpr double advance = 30; // of every character
constexpr HT_Double_Point position = {50, 600};

struct Sample {
    const char* name;
    const wchar_t* text;
    bool isFitted;
};

constexpr Sample samples[] = {
    {"word", L"Section", false},
    {"word fitted to a width", L"Section", true},
    {"line", L"All dimensions in millimetres unless stated otherwise", false},
    {"mixed scripts", L"Ось Ω 中文 é", true},
};

HT_Font plotFont() {
    HT_Font font{};
    font.height = height;
    font.rotation = degrees;
    std::wcscpy(font.faceName, L"DejaVu Sans");
    return font;
}

/// What a driver's author would write for the same text straight on the painter.
void drawByHand(QPainter& painter, const wchar_t* text, const double* widths) {
    const double radians = degrees * 0.017453292519943295;
    const QString characters = QString::fromWCharArray(text);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(height * 72 / static_cast<int>(QGuiApplication::primaryScreen()->logicalDotsPerInch()));
    font.setStyleStrategy(QFont::PreferAntialias);
    if (widths != nullptr) {
        int target = 0;
        for (size_t i = 0; i < std::wcslen(text); ++i) {
            target += static_cast<int>(std::lround(widths[i] / widthFactor));
        }
        font.setPointSize(
            static_cast<int>(font.pointSizeF() * target / QFontMetrics(font).horizontalAdvance(characters)));
    }
    painter.save();
    painter.setPen(Qt::black);
    QTransform transform(std::cos(radians) * widthFactor, -std::sin(radians) * widthFactor, std::sin(radians),
                         std::cos(radians), position.x * plotScale, position.y * plotScale);
    painter.setWorldTransform(transform.scale(plotScale, plotScale));
    QPainterPath path;
    path.addText(0, 0, font, characters);
    painter.fillPath(path, Qt::black);
    painter.restore();
}

struct Page {
    Page() : image(pageSize, pageSize, QImage::Format_ARGB32_Premultiplied), painter(&image) {
        image.fill(Qt::white);
        renderer.AttachDriver(&painter, {pageSize, pageSize}, false);
        renderer.setScale(plotScale);
    }
    /// From here on the renderer keeps outlines.
    void startPlot() {
        renderer.StartRender();
        renderer.SetColor(0);
    }
    QImage image;
    QPainter painter;
    QTRenderer renderer;
};

void drawOurs(benchmark::State& state, const Sample& sample, bool inPlot) {
    Page page;
    if (inPlot) {
        page.startPlot();
    }
    std::wstring text = sample.text;
    std::vector<double> widths(text.size(), advance);
    const HT_Font font = plotFont();
    for ([[maybe_unused]] const auto iteration : state) {
        page.renderer.DrawText(text.data(), static_cast<int>(text.size()), font, position, 0, widthFactor,
                               sample.isFitted ? widths.data() : nullptr);
    }
}

void drawHand(benchmark::State& state, const Sample& sample) {
    Page page;
    const std::vector<double> widths(std::wcslen(sample.text), advance);
    for ([[maybe_unused]] const auto iteration : state) {
        drawByHand(page.painter, sample.text, sample.isFitted ? widths.data() : nullptr);
    }
}

std::wstring numberOf(int index) {
    return L"+" + std::to_wstring(index / 100) + L"." + std::to_wstring(index % 100);
}

void drawNumbersOurs(benchmark::State& state) {
    Page page;
    page.startPlot();
    const HT_Font font = plotFont();
    int index = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        std::wstring text = numberOf(index++);
        page.renderer.DrawText(text.data(), static_cast<int>(text.size()), font, position, 0, widthFactor, nullptr);
    }
}

void drawNumbersByHand(benchmark::State& state) {
    Page page;
    int index = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        drawByHand(page.painter, numberOf(index++).c_str(), nullptr);
    }
}

std::wstring repeated(const wchar_t* text, int times) {
    std::wstring all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

void split(benchmark::State& state, const std::wstring& text) {
    const HT_FontMap fonts;
    for ([[maybe_unused]] const auto iteration : state) {
        const HT_Text split(text.c_str(), L"DejaVu Sans", fonts);
        benchmark::DoNotOptimize(split.GetSubTexts().data());
    }
    state.counters["characters"] =
        benchmark::Counter(static_cast<double>(text.size()), benchmark::Counter::kIsIterationInvariantRate);
}

void registerAll() {
    for (const Sample& sample : samples) {
        const std::string name = sample.name;
        benchmark::RegisterBenchmark(("BM_DrawText/ours/" + name).c_str(),
                                     [&](benchmark::State& state) { drawOurs(state, sample, false); });
        benchmark::RegisterBenchmark(("BM_DrawText/hand/" + name).c_str(),
                                     [&](benchmark::State& state) { drawHand(state, sample); });
        benchmark::RegisterBenchmark(("BM_DrawTextAgain/ours/" + name).c_str(),
                                     [&](benchmark::State& state) { drawOurs(state, sample, true); });
        benchmark::RegisterBenchmark(("BM_DrawTextAgain/hand/" + name).c_str(),
                                     [&](benchmark::State& state) { drawHand(state, sample); });
    }
    benchmark::RegisterBenchmark("BM_DrawNumbers/ours", drawNumbersOurs);
    benchmark::RegisterBenchmark("BM_DrawNumbers/hand", drawNumbersByHand);
    for (const auto& [name, text] : {std::pair("short", std::wstring(L"Section A")),
                                     std::pair("one font", repeated(L"All dimensions in mm. ", 500)),
                                     std::pair("two fonts", repeated(L"Maße 中文 ", 500))}) {
        benchmark::RegisterBenchmark((std::string("BM_SubText/ours/") + name).c_str(),
                                     [text = text](benchmark::State& state) { split(state, text); });
    }
}

} // namespace

int main(int argc, char** argv) {
    return runGuiBenchmarks(argc, argv, registerAll);
}
