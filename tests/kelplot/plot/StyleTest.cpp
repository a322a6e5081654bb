// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

Layer layerNamed(const char* name, bool on = true, bool frozen = false, bool plotted = true) {
    Layer layer;
    layer.name = name;
    layer.on = on;
    layer.frozen = frozen;
    layer.plotted = plotted;
    return layer;
}

enum LayerIndex : uint32_t { zero, shown, off, frozen, unplotted };

const Layer layers[] = {layerNamed("shown"), layerNamed("off", false), layerNamed("frozen", true, true),
                        layerNamed("unplotted", true, false, false)};

Entity lineOn(uint32_t layer) {
    Entity entity = entityOf(Line{{10.0, 10.0, 0.0}, {20.0, 20.0, 0.0}});
    entity.attributes.layer = layer;
    return entity;
}

TEST(Layers, HideWhatStandsOnThem) {
    const struct {
        const char* name;
        uint32_t reference;
        uint32_t content;
        bool shows;
        bool isVisible = true; ///< the reference by itself
    } cases[] = {
        {"all shown", shown, shown, true},
        {"frozen takes everything", frozen, shown, false},
        {"off keeps content of other layers", off, shown, true},
        {"off takes content of layer 0", off, zero, false},
        {"unplotted keeps content of other layers", unplotted, shown, true},
        {"unplotted takes content of layer 0", unplotted, zero, false},
        {"content off", shown, off, false},
        {"content frozen", shown, frozen, false},
        {"content unplotted", shown, unplotted, false},
        {"layer 0 content follows the reference", shown, zero, true},
        {"invisible reference", shown, shown, false, false},
    };
    for (const auto& row : cases) {
        Entity reference = entityOf(referenceTo(0));
        reference.attributes.layer = row.reference;
        reference.attributes.visible = row.isVisible;
        Drawing drawing = drawingOf(lineOn(row.content), reference);
        drawing.layers.insert(drawing.layers.end(), std::begin(layers), std::end(layers));
        EXPECT_EQ(shapesOf(drawing).size(), row.shows ? 1U : 0U) << row.name;
        EXPECT_EQ(visibleExtents(drawing, drawing.modelSpace).isEmpty(), !row.shows) << row.name;
    }
}

constexpr HT_Color black = 0x000000;
constexpr HT_Color white = 0xFFFFFF;

TEST(Colours, BecomeInk) {
    const auto index = Colour::Kind::index;
    const auto trueColour = Colour::Kind::trueColour;
    const struct {
        const char* name;
        Colour colour;
        bool monochrome;
        HT_Color line; ///< red in the lowest byte
        HT_Color fill;
    } cases[] = {
        {"red", {index, 1}, false, 0x0000FF, 0x0000FF},
        {"contrast colour", {index, 7}, false, black, black},
        {"white 255", {index, 255}, false, black, white},
        {"true colour", {trueColour, 0x123456}, false, 0x563412, 0x563412},
        {"true white", {trueColour, 0xFFFFFF}, false, black, white},
        {"number out of range", {index, 300}, false, black, black},
        {"monochrome red", {index, 1}, true, black, black},
        {"monochrome white covers", {index, 255}, true, black, white},
        {"by block outside of blocks", {Colour::Kind::byBlock, 0}, false, black, black},
    };
    for (const auto& row : cases) {
        Drawing drawing = drawingOf(lineOn(0));
        drawing.modelSpace.push_back(entityOf(Solid{{{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}}}}));
        for (Entity& entity : drawing.modelSpace) {
            entity.attributes.colour = row.colour;
        }
        const auto shapes = shapesOf(drawing, tenfoldTarget(), {row.monochrome, 1.0});
        ASSERT_EQ(shapes.size(), 2U) << row.name;
        EXPECT_EQ(shapes[0].color, row.line) << row.name;
        EXPECT_EQ(shapes[1].color, row.fill) << row.name;
    }
}

/// A line in a block in a block. The inner reference is on layer 0, the outer one on layer "outer".
TEST(Colours, ComeDownThroughNestedBlocks) {
    constexpr HT_Color red = 0x0000FF, green = 0x00FF00, blue = 0xFF0000;
    const auto byLayer = Colour::Kind::byLayer;
    const auto byBlock = Colour::Kind::byBlock;
    const struct {
        const char* name;
        Colour::Kind lineColour;
        Colour::Kind innerColour;
        uint32_t lineLayer;
        HT_Color expected;
    } cases[] = {
        {"by layer on a layer of its own", byLayer, byLayer, 2, blue},
        {"by layer on layer 0 takes the outer reference's layer", byLayer, byBlock, 0, green},
        {"by block through by block takes the outer reference's colour", byBlock, byBlock, 2, red},
        {"by block through by layer takes the outer reference's layer", byBlock, byLayer, 2, green},
    };
    for (const auto& row : cases) {
        Entity line = lineOn(row.lineLayer);
        line.attributes.colour = {row.lineColour, 0};
        Entity inner = entityOf(referenceTo(0));
        inner.attributes.colour = {row.innerColour, 0};
        Entity outer = entityOf(referenceTo(1));
        outer.attributes.layer = 1;
        outer.attributes.colour = {Colour::Kind::index, 1};
        Drawing drawing = drawingOf(line, outer);
        drawing.blocks.push_back({"b", {}, {inner}});
        drawing.layers = {drawing.layers[0], layerNamed("outer"), layerNamed("own")};
        drawing.layers[1].colour = {Colour::Kind::index, 3};
        drawing.layers[2].colour = {Colour::Kind::index, 5};
        const auto shapes = shapesOf(drawing);
        ASSERT_EQ(shapes.size(), 1U) << row.name;
        EXPECT_EQ(shapes[0].color, row.expected) << row.name;
    }
}

TEST(Opacity, ComesFromEntityLayerOrReference) {
    const struct {
        const char* name;
        Opacity line;
        Opacity reference;
        int expected;
    } rows[] = {
        {"own", 100, opacityByLayer, 100},
        {"by layer", opacityByLayer, 100, 60},
        {"by block", opacityByBlock, 100, 100},
        {"by block of a reference by layer", opacityByBlock, opacityByLayer, 60},
    };
    for (const auto& row : rows) {
        Entity line = lineOn(0);
        line.attributes.opacity = row.line;
        Entity reference = entityOf(referenceTo(0));
        reference.attributes.opacity = row.reference;
        Drawing drawing = drawingOf(line, reference);
        drawing.layers[0].opacity = 60;
        drawing.modelSpace.push_back(lineOn(0));
        drawing.modelSpace[1].attributes.opacity = opaque;
        const auto shapes = shapesOf(drawing);
        ASSERT_EQ(shapes.size(), 2U) << row.name;
        EXPECT_EQ(shapes[0].alpha, row.expected) << row.name;
        EXPECT_EQ(shapes[1].alpha, 255) << row.name;
    }
}

TEST(LineWeights, BecomeDeviceUnits) {
    const struct {
        const char* name;
        LineWeight entity;
        LineWeight layer;
        double scale;
        double expected; ///< device units; a millimetre has 10, a hairline 2
    } cases[] = {
        {"stated", 100, 13, 1.0, 10.0},
        {"by layer", lineWeightByLayer, 50, 1.0, 5.0},
        {"drawing's default", lineWeightDefault, 50, 1.0, 4.0},
        {"layer's default", lineWeightByLayer, lineWeightDefault, 1.0, 4.0},
        {"by block outside of blocks", lineWeightByBlock, 50, 1.0, 4.0},
        {"scaled", 100, 13, 0.5, 5.0},
        {"zero is a hairline", 0, 50, 1.0, 2.0},
        {"never below a hairline", 5, 50, 1.0, 2.0},
    };
    for (const auto& row : cases) {
        Drawing drawing = drawingOf(lineOn(0));
        drawing.defaultLineWeight = 40;
        drawing.layers[0].lineWeight = row.layer;
        drawing.modelSpace[0].attributes.lineWeight = row.entity;
        PlotTarget target = tenfoldTarget();
        target.hairlineWidth = 2.0;
        const auto shapes = shapesOf(drawing, target, {false, row.scale});
        ASSERT_EQ(shapes.size(), 1U) << row.name;
        EXPECT_EQ(shapes[0].weight, row.expected) << row.name;
        EXPECT_EQ(shapes[0].ends, HT_PlotStyle::LineEndRound) << row.name;
        EXPECT_EQ(shapes[0].joins, HT_PlotStyle::LineJoinRound) << row.name;
    }
}

TEST(Pens, TakeThePlaceOfTheDrawingsStyle) {
    constexpr Colour red{Colour::Kind::index, 1};
    constexpr HT_Color redInk = 0x0000ff, blueInk = 0xff0000;
    const struct {
        const char* name;
        Colour colour;
        PenRule rule; ///< of colour numbers 1 and 255
        bool monochrome;
        HT_Color ink;
        double weight; ///< device units; the drawing states a millimetre, which has 10, and it is scaled by a half
    } rows[] = {
        {"nothing stated", red, {}, false, redInk, 5},
        {"width", red, {0.8, {}, 100}, false, redInk, 4},
        {"colour", red, {{}, blueInk, 100}, false, blueInk, 5},
        {"half the ink", red, {{}, {}, 50}, false, 0x7f7fff, 5},
        {"no ink", red, {{}, {}, 0}, false, white, 5},
        {"a fifth of the pen's ink", red, {2.0, HT_Color{0}, 20}, false, 0xcccccc, 10},
        {"monochrome", red, {{}, blueInk, 40}, true, 0x999999, 5},
        {"other number", {Colour::Kind::index, 5}, {2.0, HT_Color{0}, 50}, false, blueInk, 5},
        {"true colour", {Colour::Kind::trueColour, 1}, {2.0, blueInk, 50}, false, 0x010000, 5},
        {"areas that cover stay white", {Colour::Kind::index, 255}, {1.0, HT_Color{0}, 100}, false, black, 5},
    };
    for (const auto& row : rows) {
        Drawing drawing = drawingOf(lineOn(0));
        drawing.modelSpace.push_back(entityOf(Solid{{Vec3{10, 10, 0}, {20, 10, 0}, {20, 20, 0}, {10, 20, 0}}}));
        for (Entity& entity : drawing.modelSpace) {
            entity.attributes.colour = row.colour;
            entity.attributes.lineWeight = 100;
        }
        PlotStyleOptions style;
        style.monochrome = row.monochrome;
        style.lineWeightScale = 0.5;
        style.pens.set(1, row.rule);
        style.pens.set(255, row.rule);
        const auto shapes = shapesOf(drawing, tenfoldTarget(), style);
        ASSERT_EQ(shapes.size(), 2U);
        EXPECT_EQ(shapes[0].color, row.ink) << row.name;
        EXPECT_DOUBLE_EQ(shapes[0].weight, row.weight) << row.name;
        EXPECT_EQ(shapes[1].color, row.colour.value == 255 ? white : row.ink) << row.name;
    }
}

TEST(Styles, AreSentOnlyWhenTheyChange) {
    Drawing drawing = drawingOf(lineOn(0));
    RecordingRenderer once;
    plotEntities(drawing, drawing.modelSpace, tenfoldTarget(), {}, once, {});
    drawing.modelSpace.assign(100, lineOn(0));
    RecordingRenderer often;
    plotEntities(drawing, drawing.modelSpace, tenfoldTarget(), {}, often, {});
    EXPECT_EQ(often.shapes.size(), 100U);
    EXPECT_EQ(often.styleCalls, once.styleCalls);
}

} // namespace
} // namespace kelplot
