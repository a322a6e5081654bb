// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

/// The dash and gap lengths, in device units, that a renderer draws for entries given to it with a pen of
/// width `w` and flat ends: it rounds an entry, takes the width off gaps, and draws an entry of 0 one
/// width long.
std::vector<double> drawnLengths(const std::vector<double>& entries, double w) {
    std::vector<double> lengths;
    for (size_t i = 0; i < entries.size(); ++i) {
        const double rounded = std::round(entries[i]);
        lengths.push_back(std::abs(entries[i]) <= 1e-10 ? w : i % 2 == 1 ? rounded - w : rounded);
    }
    return lengths;
}

Drawing dashedDrawing(const std::vector<double>& pattern, LineWeight weight) {
    Drawing drawing = drawingOf(entityOf(Line{{0.0, 50.0, 0.0}, {100.0, 50.0, 0.0}}));
    drawing.lineTypes.push_back({"Dashed", pattern});
    drawing.modelSpace[0].attributes.lineType = 1;
    drawing.modelSpace[0].attributes.lineWeight = weight;
    return drawing;
}

TEST(Dashes, ComeOutInTheirTrueLengths) {
    const struct {
        const char* name;
        std::vector<double> pattern;  ///< drawing units; one is 10 device units
        LineWeight weight;            ///< 100 is 10 device units
        std::vector<double> expected; ///< device units; empty: continuous
    } cases[] = {
        {"hairline", {5.0, -3.0}, 0, {50, 30}},
        {"wide pen", {5.0, -3.0}, 100, {50, 30}},
        {"gap shorter than the pen is wide", {5.0, -0.5}, 100, {50, 5}},
        {"dash and dot", {5.0, -2.0, 0.0, -2.0}, 40, {50, 18, 4, 18}},
        {"only dots", {0.0, -2.0}, 40, {4, 16}},
        {"odd count repeats dash on dash", {5.0, -3.0, 2.0}, 0, {70, 30}},
        {"dashes and gaps in a row", {2.0, 3.0, -1.0, -2.0}, 0, {50, 30}},
        {"gap first", {-3.0, 5.0}, 0, {50, 30}},
        {"continuous", {}, 0, {}},
        {"only a dash", {5.0}, 0, {}},
        {"too fine to show", {0.1, -0.1}, 0, {}},
        {"not finite", {5.0, -HUGE_VAL}, 0, {}},
    };
    for (const auto& row : cases) {
        const auto shapes = shapesOf(dashedDrawing(row.pattern, row.weight));
        ASSERT_EQ(shapes.size(), 1U) << row.name;
        EXPECT_EQ(drawnLengths(shapes[0].pattern, shapes[0].weight), row.expected) << row.name;
        EXPECT_EQ(shapes[0].ends, row.expected.empty() ? HT_PlotStyle::LineEndRound : HT_PlotStyle::LineEndFlat)
            << row.name;
    }
}

TEST(Dashes, RoundingDoesNotAddUpOverThePattern) {
    const auto shapes = shapesOf(dashedDrawing({0.34, -0.34, 0.34, -0.34, 0.34, -0.34}, 0));
    const std::vector<double> lengths = drawnLengths(shapes[0].pattern, shapes[0].weight);
    EXPECT_NEAR(std::accumulate(lengths.begin(), lengths.end(), 0.0), 20.4, 0.5);
}

TEST(Dashes, GrowWithAllScalesButNotWithTheBlocks) {
    Drawing drawing = dashedDrawing({5.0, -3.0}, 0);
    drawing.lineTypeScale = 2.0;
    drawing.modelSpace[0].attributes.lineTypeScale = 0.5;
    EXPECT_EQ(drawnLengths(shapesOf(drawing)[0].pattern, 1.0), (std::vector<double>{50, 30}));

    drawing.modelSpace[0].attributes.lineTypeScale = 1.0;
    drawing.blocks.push_back({"block", {}, {drawing.modelSpace[0]}});
    Insert tenfold = referenceTo(0);
    tenfold.scale = {10.0, 10.0, 10.0};
    drawing.modelSpace = {entityOf(tenfold)};
    drawing.blocks[0].entities[0].geometry = Line{{1.0, 1.0, 0.0}, {2.0, 2.0, 0.0}};
    EXPECT_EQ(drawnLengths(shapesOf(drawing)[0].pattern, 1.0), (std::vector<double>{100, 60}));
}

TEST(Dashes, RestartAtPolylineVerticesUnlessContinuous) {
    Drawing drawing = dashedDrawing({5.0, -3.0}, 0);
    Polyline polyline = polylineOf({{{10, 10, 0}}, {{20, 10, 0}}, {{20, 20, 0}}}, true);
    drawing.modelSpace[0].geometry = polyline;
    EXPECT_EQ(textOf(shapesOf(drawing)), "line 100,900 200,900\nline 200,900 200,800\nline 200,800 100,900\n");
    polyline.continuousPattern = true;
    drawing.modelSpace[0].geometry = polyline;
    EXPECT_EQ(textOf(shapesOf(drawing)), "line 100,900 200,900 200,800 100,900\n");
    for (PolylineVertex& vertex : polyline.vertices) {
        vertex.startWidth = vertex.endWidth = 0.5;
    }
    drawing.modelSpace[0].geometry = polyline;
    EXPECT_EQ(textOf(shapesOf(drawing)), "line 100,900 200,900 200,800 100,900\n") << "a wide one as well";
}

TEST(Dashes, FollowEveryChangeOfWidthAndScale) {
    Drawing drawing = dashedDrawing({5.0, -3.0}, 40);
    drawing.modelSpace.resize(4, drawing.modelSpace[0]);
    drawing.modelSpace[1].attributes.lineWeight = 100;
    drawing.modelSpace[2].attributes.lineWeight = 100;
    drawing.modelSpace[2].attributes.lineTypeScale = 2.0;
    const std::vector<double> once{50, 30}, twice{100, 60};
    const auto shapes = shapesOf(drawing);
    ASSERT_EQ(shapes.size(), 4U);
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(drawnLengths(shapes[i].pattern, shapes[i].weight), i == 2 ? twice : once) << "line " << i;
    }
}

TEST(Dashes, OfAMirroredArcStartWhereTheArcStarts) {
    Drawing drawing = dashedDrawing({5.0, -3.0}, 0);
    drawing.modelSpace[0].geometry = Arc{{-50.0, 50.0, 0.0}, 20.0, 0.0, 1.0};
    drawing.modelSpace[0].extrusion = {0.0, 0.0, -1.0};
    const auto shapes = shapesOf(drawing);
    ASSERT_EQ(textOf(shapes).substr(0, 13), "line 300,500 ");
    EXPECT_FALSE(shapes[0].pattern.empty());
}

} // namespace
} // namespace kelplot
