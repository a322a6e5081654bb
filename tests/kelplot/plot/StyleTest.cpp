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

/// A line and an area, and what is sent for them: both inks, and the line's width in device units.
struct StyleCase {
    const char* name;
    Colour colour;
    const char* expected; ///< an ink has red in the lowest byte; a millimetre has 10 units, a hairline 2
    PenRule pen = {};     ///< of colour numbers 1 and 255
    bool monochrome = false;
    double scale = 1.0;
    LineWeight weight = 100;
    LineWeight layerWeight = 50;
};

std::string sentFor(const StyleCase& row) {
    Drawing drawing = drawingOf(lineOn(0));
    drawing.modelSpace.push_back(entityOf(Solid{{{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}}}}));
    for (Entity& entity : drawing.modelSpace) {
        entity.attributes.colour = row.colour;
        entity.attributes.lineWeight = row.weight;
    }
    drawing.defaultLineWeight = 40;
    drawing.layers[0].lineWeight = row.layerWeight;
    PlotTarget target = tenfoldTarget();
    target.hairlineWidth = 2.0;
    PlotStyleOptions style{row.monochrome, row.scale};
    style.pens.set(1, row.pen);
    style.pens.set(255, row.pen);
    const auto shapes = shapesOf(drawing, target, style);
    EXPECT_EQ(shapes.at(0).ends, HT_PlotStyle::LineEndRound) << row.name;
    EXPECT_EQ(shapes.at(0).joins, HT_PlotStyle::LineJoinRound) << row.name;
    char text[40];
    std::snprintf(text, sizeof text, "%06x %06x %g", shapes.at(0).color, shapes.at(1).color, shapes.at(0).weight);
    return text;
}

TEST(Styles, BecomeInkAndDeviceUnits) {
    constexpr auto index = Colour::Kind::index, trueColour = Colour::Kind::trueColour;
    constexpr Colour red{index, 1}, contrast{index, 7}, covering{index, 255};
    constexpr HT_Color blue = 0xff0000, black = 0;
    const StyleCase rows[] = {
        {"red", red, "0000ff 0000ff 10"},
        {"contrast colour", contrast, "000000 000000 10"},
        {"white 255", covering, "000000 ffffff 10"},
        {"true colour", {trueColour, 0x123456}, "563412 563412 10"},
        {"true white", {trueColour, 0xFFFFFF}, "000000 ffffff 10"},
        {"number out of range", {index, 300}, "000000 000000 10"},
        {"by block outside of blocks", {Colour::Kind::byBlock, 0}, "000000 000000 10"},
        {"monochrome red", red, "000000 000000 10", {}, true},
        {"monochrome white covers", covering, "000000 ffffff 10", {}, true},
        {"pen's width", red, "0000ff 0000ff 8", {0.8, {}, 100}},
        {"pen's width scaled", red, "0000ff 0000ff 4", {0.8, {}, 100}, false, 0.5},
        {"pen's colour", red, "ff0000 ff0000 10", {{}, blue, 100}},
        {"half the ink", red, "7f7fff 7f7fff 10", {{}, {}, 50}},
        {"no ink", red, "ffffff ffffff 10", {{}, {}, 0}},
        {"a fifth of the pen's ink", red, "cccccc cccccc 20", {2.0, black, 20}},
        {"pen in monochrome", red, "999999 999999 10", {{}, blue, 40}, true},
        {"pen of another number", {index, 5}, "ff0000 ff0000 10", {2.0, black, 50}},
        {"no pen of a true colour", {trueColour, 1}, "010000 010000 10", {2.0, blue, 50}},
        {"areas that cover stay white", covering, "000000 ffffff 10", {1.0, black, 100}},
        {"weight by layer", contrast, "000000 000000 5", {}, false, 1.0, lineWeightByLayer},
        {"drawing's default", contrast, "000000 000000 4", {}, false, 1.0, lineWeightDefault},
        {"layer's default", contrast, "000000 000000 4", {}, false, 1.0, lineWeightByLayer, lineWeightDefault},
        {"weight by block outside of blocks", contrast, "000000 000000 4", {}, false, 1.0, lineWeightByBlock},
        {"scaled", contrast, "000000 000000 5", {}, false, 0.5},
        {"zero is a hairline", contrast, "000000 000000 2", {}, false, 1.0, 0},
        {"never below a hairline", contrast, "000000 000000 2", {}, false, 1.0, 5},
    };
    for (const StyleCase& row : rows) {
        EXPECT_EQ(sentFor(row), row.expected) << row.name;
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

TEST(Styles, AreSentOnlyWhenTheyChange) {
    Drawing drawing = drawingOf(lineOn(0));
    RecordingRenderer once;
    plotEntities(drawing, drawing.modelSpace, tenfoldTarget(), {}, {once}, {});
    drawing.modelSpace.assign(100, lineOn(0));
    RecordingRenderer often;
    plotEntities(drawing, drawing.modelSpace, tenfoldTarget(), {}, {often}, {});
    EXPECT_EQ(often.shapes.size(), 100U);
    EXPECT_EQ(often.styleCalls, once.styleCalls);
}

} // namespace
} // namespace kelplot
