// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>
#include <cwchar>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "keldriver/DriverKit.h"
#include "region/GeometryModule.h"

using namespace KelDriver::Kit;

namespace {

int liveBlocks = 0;

/// A geometry module that answers two pieces, the second without points; it fails where there is no region.
int twoPieces(const HT_Double_Point*, int, const HT_ClipRgn* region, int32_t** coords, int32_t** counts) {
    static int32_t vertices[] = {1, -2, 30, 4};
    static int32_t lengths[] = {2, 0};
    *coords = vertices;
    *counts = lengths;
    return region != nullptr ? 2 : -1;
}

/// The column of the rightmost ink of texts that are drawn one behind another.
int rightmostInk(const std::vector<std::wstring>& texts, const HT_Font& font, double widthFactor) {
    QImage page(1600, 300, QImage::Format_Grayscale8);
    page.fill(Qt::white);
    QPainter painter(&page);
    double left = 10;
    for (std::wstring text : texts) {
        RenderSession(painter)->DrawText(text.data(), 0, font, {left, 200}, 0, widthFactor, nullptr);
        left += advanceOf(text, font, widthFactor);
    }
    const QImage blank = page.copy(page.width() - 1, 0, 1, page.height());
    int x = page.width() - 1;
    while (x > 0 && page.copy(x, 0, 1, page.height()) == blank) {
        --x;
    }
    return x;
}

} // namespace

// In the place of the library's own, to count blocks.
void* HT_Malloc(unsigned long size) {
    ++liveBlocks;
    return std::malloc(size);
}

void HT_Free(void* memory) {
    liveBlocks -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

TEST(DriverKitTest, PiecesAreCopiedOutAndReleased) {
    const HT_Double_Point line[] = {{0, 0}, {9, 9}};
    const RegionPtr region(KelDriver::HT_CreateRectRgnData({0, 0}, {5, 5}));
    g_ClipProc = twoPieces;
    g_ClipFree = [](void*) {
    };
    {
        PolylinePieces pieces(region.get(), line, 2);
        EXPECT_EQ(pieces.count(), 2);
        EXPECT_EQ(liveBlocks, 2);
        ASSERT_EQ(pieces.points(0).size(), 2U);
        EXPECT_EQ(pieces.points(0)[0].y, -2);
        EXPECT_EQ(pieces.points(0)[1].x, 30);
        EXPECT_TRUE(pieces.points(1).empty());
        EXPECT_TRUE(pieces.points(2).empty());
        EXPECT_FALSE(pieces.hasFailed());
    }
    EXPECT_EQ(liveBlocks, 0);
    EXPECT_TRUE(PolylinePieces(nullptr, line, 2).hasFailed());
    g_ClipProc = nullptr;
    EXPECT_FALSE(hasGeometryModule());
}

// A painter that ends with saved states, or is restored too often, makes Qt warn, which fails a test.
TEST(DriverKitTest, SessionLeavesThePainterAsItWas) {
    QImage page(20, 10, QImage::Format_RGB32);
    QPainter painter(&page);
    painter.setPen(Qt::green);
    for (const HT_Color ink : {0x0000ffU, 0xff0000U}) {
        const RenderSession renderer(painter);
        renderer->SetColor(ink);
        renderer->SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
        renderer->DrawPoint({ink == 0xff ? 2. : 12., 4});
    }
    EXPECT_EQ(painter.pen().color(), QColor(Qt::green));
    EXPECT_TRUE(painter.end());
    EXPECT_EQ(page.pixelColor(2, 4), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(12, 4), QColor(Qt::blue));
}

TEST(DriverKitTest, RecordsBecomeFonts) {
    tagLOGFONTW record{-250, 9, 905, 0, 600, 1, 1, 1, 134, 0, 0, 0, 34, {}};
    std::wmemset(record.lfFaceName, L'x', 32); // fills its field, without a terminator
    const HT_Font font = fontOf(record);
    EXPECT_EQ(std::tie(font.height, font.rotation), std::tuple(250, 90.5));
    EXPECT_EQ(std::tie(font.bold, font.italic, font.charSet, font.pitchAndFamily), std::tuple(1, 1, 134, 34));
    EXPECT_EQ(std::wmemcmp(font.faceName, record.lfFaceName, 32), 0);
    record.lfWeight = 500;
    EXPECT_EQ(fontOf(record).bold, 0);
}

TEST(DriverKitTest, RunsJoinLikeOneText) {
    const struct {
        const char* name;
        double height;
        uint8_t bold;
        double widthFactor;
    } rows[] = {{"plain", 100, 0, 1}, {"bold", -99.6, 1, 1}, {"stretched", 60.4, 0, 2.5}, {"of Qt's size", 0.4, 0, 1}};
    for (const auto& row : rows) {
        const HT_Font font{row.height, 0, row.bold, 0, 0, 0, L"DejaVu Sans"};
        const int whole = rightmostInk({L"Hamburg 1 x l"}, font, row.widthFactor);
        EXPECT_GT(whole, 60) << row.name;
        EXPECT_NEAR(rightmostInk({L"Ham", L"burg 1 ", L"x l"}, font, row.widthFactor), whole, 1) << row.name;
    }
}
