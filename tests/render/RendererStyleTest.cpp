// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <functional>

#include <QImage>

#include "render/RendererFixture.h"
#include "support/ExpectedWarnings.h"
#include "support/PlotText.h"

namespace {

using namespace HT_PlotStyle;

const HT_Double_Point segment[] = {{0, 0}, {5, 0}};

TEST(Style, EachSettingShowsInPenAndBrush) {
    const ExpectedWarnings refusedWidths("QPen::setWidth: "); // after which the pen keeps 1
    double pattern[] = {10, 5};
    const auto type = [&pattern](int value, double* given, unsigned count) {
        return [=, &pattern](OpenRenderer& r) {
            r.SetLineType(LineTypeCustom, pattern, 2);
            r.SetLineType(fromDriver<LineType>(value), given, count);
        };
    };
    const auto ends = [](int value) {
        return [=](OpenRenderer& r) {
            r.SetLineEndStyle(fromDriver<LineEndStyle>(value));
            r.SetLineJoinStyle(fromDriver<LineJoinStyle>(value));
        };
    };
    const auto weight = [](double value) {
        return [=](OpenRenderer& r) {
            r.SetLineWeight(value);
        };
    };
    const auto fill = [](int value) {
        return [=](OpenRenderer& r) {
            r.SetFillStyle(fromDriver<FillStyle>(value));
        };
    };
    const struct {
        const char* name;
        std::function<void(OpenRenderer&)> set;
        const char* pen;
        const char* brush = "#112233 solid";
    } rows[] = {
        {"nothing", [](OpenRenderer&) {}, "#112233 1 solid flat miter"},
        {"dashes", type(1, pattern, 2), "#112233 1 dash flat miter"},
        {"dots", type(2, pattern, 2), "#112233 1 dot flat miter"},
        {"dashes and dots", type(3, pattern, 2), "#112233 1 dash-dot flat miter"},
        {"solid", type(0, pattern, 2), "#112233 1 solid flat miter"},
        {"unknown type", type(7, pattern, 2), "#112233 1 solid flat miter"},
        {"negative type", type(-1, pattern, 2), "#112233 1 solid flat miter"},
        {"custom", type(4, pattern, 2), "#112233 1 custom[10 4] flat miter"},
        {"custom of no dashes", type(4, pattern, 0), "#112233 1 custom[] flat miter"},
        {"custom without pattern", type(4, nullptr, 2), "#112233 1 custom[] flat miter"},
        {"flat", ends(0), "#112233 1 solid flat miter"},
        {"square", ends(1), "#112233 1 solid square bevel"},
        {"round", ends(2), "#112233 1 solid round round"},
        {"unknown ends", ends(99), "#112233 1 solid round round"},
        {"negative ends", ends(-1), "#112233 1 solid round round"},
        {"half a unit", weight(2.5), "#112233 3 solid flat miter"},
        {"less", weight(0.49), "#112233 0 solid flat miter"},
        {"not a number", weight(std::nan("")), "#112233 0 solid flat miter"},
        {"widest", weight(32767), "#112233 32767 solid flat miter"},
        {"too wide", weight(32768), "#112233 1 solid flat miter"},
        {"saturating", weight(1e12), "#112233 1 solid flat miter"},
        {"negative", weight(-2.5), "#112233 1 solid flat miter"},
        {"the top byte of a colour is not read", [](OpenRenderer& r) { r.SetColor(0x80332211U); },
         "#112233 1 solid flat miter"},
        {"opacity before the colour is lost", [](OpenRenderer& r) { r.SetAlpha(128), r.SetColor(0x0000FF); },
         "#ff0000 1 solid flat miter", "#ff0000 solid"},
        {"opacity after it", [](OpenRenderer& r) { r.SetColor(0x0000FF), r.SetAlpha(64); },
         "#40ff0000 1 solid flat miter", "#40ff0000 solid"},
        {"solid fill", fill(0), "#112233 1 solid flat miter"},
        {"squares", fill(1), "#112233 1 solid flat miter", "texture 8x8"},
        {"cross", fill(2), "#112233 1 solid flat miter", "#112233 cross"},
        {"diagonal cross", fill(3), "#112233 1 solid flat miter", "#112233 diagonal-cross"},
        {"horizontal", fill(4), "#112233 1 solid flat miter", "#112233 horizontal"},
        {"forward", fill(5), "#112233 1 solid flat miter", "#112233 forward-diagonal"},
        {"backward", fill(6), "#112233 1 solid flat miter", "#112233 backward-diagonal"},
        {"dotted", fill(7), "#112233 1 solid flat miter", "texture 8x8"},
        {"vertical", fill(8), "#112233 1 solid flat miter", "#112233 vertical"},
        {"unknown fill", fill(9), "#112233 1 solid flat miter", "none"},
        {"negative fill", fill(-1), "#112233 1 solid flat miter", "none"},
    };
    for (const auto& row : rows) {
        PlotRecorder recorder;
        QPainter painter(&recorder);
        OpenRenderer renderer;
        renderer.AttachDriver(&painter, {0, 0}, false);
        renderer.SetLineType(LineTypeSolid, nullptr, 0);
        renderer.setScale(2); // does not count
        renderer.SetLineWeight(1);
        renderer.SetColor(0x332211);
        renderer.setScale(1);
        row.set(renderer);
        EXPECT_EQ(plotText::pen(painter.pen()), row.pen) << row.name;
        EXPECT_EQ(plotText::brush(painter.brush()), row.brush) << row.name;
    }
}

TEST(Style, WeightsAndOpacityAreKept) {
    OpenRenderer renderer;
    const std::pair<double, int32_t> rows[] = {{-2.5, -3}, {1e12, INT32_MAX}, {-1e12, INT32_MIN}};
    for (const auto& [weight, stored] : rows) {
        renderer.SetLineWeight(weight);
        EXPECT_EQ(renderer.penWidth, stored);
    }
    renderer.SetAlpha(128);
    renderer.SetColor(0x0000FF);
    EXPECT_EQ(renderer.alpha, 128) << "images go on using it";
}

TEST(Style, DashesBecomeMultiplesOfTheWeight) {
    constexpr double minusOneUnsigned = 4294967295.0; // a negative weight is read as the unsigned number of its bits
    const struct {
        const char* name;
        double weight;
        double scale;
        std::vector<double> pattern;
        QVector<double> expected;
    } rows[] = {
        {"zero weight neither shortens nor divides", 0, 1, {10, 5}, {10, 5}},
        {"gaps give the caps their room", 2, 1, {10, 5}, {5, 1.5}},
        {"a zero length is one pen width, scaled", 2, 3, {0, 4}, {3, 3}},
        {"rounded, and a short gap goes negative", 4, 1, {2.5, 2.5}, {0.75, -0.25}},
        {"almost zero counts as zero", 1, 3, {1e-11, 7}, {3, 18}},
        {"the tolerance itself counts as zero", 5, 1, {1e-10, -1e-10}, {1, 1}},
        {"above the tolerance rounds to nothing", 5, 1, {2e-10, 2e-10}, {0, -1}},
        {"saturating", 1, 1, {1e300, -1e300}, {2147483647.0, -2147483649.0}},
        {"not a number counts as zero", 2, 1, {std::nan(""), 4}, {1, 1}},
        {"negative weight", -1, 1, {minusOneUnsigned, 0}, {2147483647.0 / minusOneUnsigned, 1}},
    };
    for (const auto& row : rows) {
        std::vector<double> pattern = row.pattern;
        OpenRenderer renderer;
        renderer.setScale(row.scale);
        renderer.SetLineWeight(row.weight);
        renderer.SetLineType(LineTypeCustom, pattern.data(), static_cast<unsigned>(pattern.size()));
        EXPECT_EQ(renderer.penStyle, Qt::CustomDashLine) << row.name;
        EXPECT_EQ(renderer.dashPattern, row.expected) << row.name;
    }
}

TEST_F(RendererTest, DashedLinesOfDifferentWidthsFollowEachOther) {
    double pattern[] = {10, 5};
    renderer.SetLineWeight(2.0);
    renderer.SetLineType(LineTypeCustom, pattern, 2);
    renderer.DrawPolyline(segment, 2);
    renderer.SetLineWeight(5.0); // the dashes keep the weight that they were set with
    renderer.DrawPolyline(segment, 2);
    renderer.SetLineType(LineTypeCustom, pattern, 2);
    renderer.DrawPolyline(segment, 2);
    EXPECT_EQ(recorder.plot(), golden(R"(
        polyline 0,0 5,0 | pen #000000 2 custom[5 1.5] flat miter | brush none
        polyline 0,0 5,0 | pen #000000 5 custom[5 1.5] flat miter | brush none
        polyline 0,0 5,0 | pen #000000 5 custom[2 0] flat miter | brush none
    )"));
}

/// The rows of a texture that are not all white, with their numbers.
std::string pictureOf(const QImage& image) {
    std::string text;
    for (int y = 0; y < image.height(); ++y) {
        std::string row;
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            row += pixel == Qt::white ? '.' : pixel == Qt::red ? 'r' : pixel == Qt::blue ? 'b' : '?';
        }
        text += row == "........" ? "" : std::to_string(y) + row + " ";
    }
    return text;
}

TEST_F(RendererTest, TexturesKeepTheColourOfTheirFirstUse) {
    const std::string redSquare = "2..rrrr.. 3..r..r.. 4..r..r.. 5..rrrr.. ";
    renderer.SetColor(0x0000FF);
    renderer.SetAlpha(10); // a texture is opaque all the same
    renderer.SetFillStyle(FillSquares);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), redSquare);
    renderer.SetColor(0xFF0000);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), redSquare);
    renderer.SetFillStyle(FillDots);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), "0bb...... 1bb...... ");
    renderer.SetFillStyle(FillSquares);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), redSquare);
}

TEST_F(RendererTest, MergeControlChoosesComposition) {
    const auto multiply = QPainter::CompositionMode_Multiply, plain = QPainter::CompositionMode_SourceOver;
    const std::pair<int, QPainter::CompositionMode> rows[] = {
        {1, multiply}, {2, multiply}, {-1, multiply}, {0, plain}, {7, plain}};
    for (const auto& [type, expected] : rows) {
        renderer.SetMergeControlType(fromDriver<MergeControlType>(type));
        EXPECT_EQ(painter.compositionMode(), expected) << "type " << type;
    }
}

const HT_Double_Point triangle[] = {{0, 0}, {10, 0}, {0, 10}};
const HT_Double_Point closedTriangle[] = {{20, 0}, {30, 0}, {20, 10}, {20, 0}};

TEST_F(RendererTest, WindingDrawsAllPolygonsAsOnePathWhenLeft) {
    renderer.SetLineType(LineTypeSolid, nullptr, 0);
    renderer.SetColor(0x0000FF);
    renderer.SetFillMode(FillModeAlternate);
    renderer.SetFillMode(FillModeWinding);
    renderer.SetFillMode(FillModeAlternate); // nothing was gathered
    EXPECT_FALSE(renderer.windingPending);
    renderer.SetFillMode(FillModeWinding);
    renderer.FillPolygon(triangle, 3);
    renderer.SetFillMode(FillModeWinding);
    renderer.FillPolygon(closedTriangle, 4);
    renderer.SetFillMode(fromDriver<FillMode>(2));
    EXPECT_EQ(recorder.shapes(), "");
    renderer.SetColor(0xFF0000); // the style of the end counts
    renderer.SetFillMode(FillModeAlternate);
    EXPECT_FALSE(renderer.windingPending);
    EXPECT_EQ(renderer.windingPath, QPainterPath());
    renderer.SetFillMode(FillModeAlternate);
    renderer.FillPolygon(triangle, 3);
    EXPECT_EQ(recorder.plot(), golden(R"(
        path M0,0 L10,0 L0,10 L0,0 M20,0 L30,0 L20,10 L20,0 winding | pen #0000ff 0 solid flat miter | brush #0000ff solid
        path M0,0 L10,0 L0,10 L0,0 M20,0 L30,0 L20,10 L20,0 winding | pen none | brush #0000ff solid
        path M0,0 L10,0 L0,10 | pen none | brush #0000ff solid
    )"));
}

TEST_F(RendererTest, ShrunkenPolygonsAreDrawnEvenWhileGathering) {
    const HT_Double_Point line[] = {{0, 0}, {10, 0}, {10.2, 0.1}};
    const HT_Double_Point dot[] = {{3.9, 3.9}, {4.1, 4.1}, {4.0, 4.0}};
    for (const FillMode mode : {FillModeAlternate, FillModeWinding}) {
        renderer.SetFillMode(mode);
        renderer.SetColor(0x0000FF); // lets the point count as new
        recorder.clear();
        renderer.FillPolygon(line, 3);
        renderer.FillPolygon(dot, 3);
        EXPECT_EQ(recorder.shapes(), "polyline 0,0 10,0\npoints 4,4\n") << "mode " << mode;
    }
}

} // namespace
