#include <gtest/gtest.h>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

Layer layerNamed(const char* name, bool on, bool frozen, bool plotted) {
    Layer layer;
    layer.name = name;
    layer.on = on;
    layer.frozen = frozen;
    layer.plotted = plotted;
    return layer;
}

enum LayerIndex : uint32_t { zero, shown, off, frozen, unplotted, layerCount };

Drawing drawingWithLayers() {
    Drawing drawing = emptyDrawing();
    drawing.layers.push_back(layerNamed("shown", true, false, true));
    drawing.layers.push_back(layerNamed("off", false, false, true));
    drawing.layers.push_back(layerNamed("frozen", true, true, true));
    drawing.layers.push_back(layerNamed("unplotted", true, false, false));
    return drawing;
}

Entity lineOn(uint32_t layer) {
    Entity entity = entityOf(Line{{10.0, 10.0, 0.0}, {20.0, 20.0, 0.0}});
    entity.attributes.layer = layer;
    return entity;
}

TEST(Layers, HideWhatStandsOnThem) {
    for (uint32_t layer = zero; layer < layerCount; ++layer) {
        Drawing drawing = drawingWithLayers();
        drawing.modelSpace.push_back(lineOn(layer));
        const bool expected = layer == zero || layer == shown;
        EXPECT_EQ(shapesOf(drawing).size(), expected ? 1U : 0U) << drawing.layers[layer].name;
        EXPECT_EQ(visibleExtents(drawing, drawing.modelSpace).isEmpty(), !expected) << drawing.layers[layer].name;
    }
}

struct ReferenceCase {
    const char* name;
    uint32_t referenceLayer;
    uint32_t contentLayer;
    bool shows;
};

TEST(Layers, OfBlockReferences) {
    const ReferenceCase cases[] = {
        {"all shown", shown, shown, true},
        {"frozen takes everything", frozen, shown, false},
        {"off keeps content of other layers", off, shown, true},
        {"off takes content of layer 0", off, zero, false},
        {"unplotted keeps content of other layers", unplotted, shown, true},
        {"unplotted takes content of layer 0", unplotted, zero, false},
        {"content off", shown, off, false},
        {"layer 0 content follows the reference", shown, zero, true},
    };
    for (const ReferenceCase& row : cases) {
        Drawing drawing = drawingWithLayers();
        drawing.blocks.push_back({"block", {}, {lineOn(row.contentLayer)}});
        Entity reference = entityOf(referenceTo(0));
        reference.attributes.layer = row.referenceLayer;
        drawing.modelSpace.push_back(reference);
        EXPECT_EQ(shapesOf(drawing).size(), row.shows ? 1U : 0U) << row.name;
        EXPECT_EQ(visibleExtents(drawing, drawing.modelSpace).isEmpty(), !row.shows) << row.name;
    }
}

TEST(Layers, InvisibleEntitiesAndReferencesStayAway) {
    Drawing drawing = drawingWithLayers();
    drawing.blocks.push_back({"block", {}, {lineOn(shown)}});
    for (const Entity& entity : {lineOn(shown), entityOf(referenceTo(0))}) {
        drawing.modelSpace.push_back(entity);
        drawing.modelSpace.back().attributes.visible = false;
    }
    EXPECT_TRUE(shapesOf(drawing).empty());
    EXPECT_TRUE(visibleExtents(drawing, drawing.modelSpace).isEmpty());
}

constexpr HT_Color black = 0x000000;
constexpr HT_Color white = 0xFFFFFF;

struct ColourCase {
    const char* name;
    Colour colour;
    bool monochrome;
    HT_Color line; ///< red in the lowest byte
    HT_Color fill;
};

TEST(Colours, BecomeInk) {
    const auto index = Colour::Kind::index;
    const auto trueColour = Colour::Kind::trueColour;
    const ColourCase cases[] = {
        {"red", {index, 1}, false, 0x0000FF, 0x0000FF},
        {"blue", {index, 5}, false, 0xFF0000, 0xFF0000},
        {"contrast colour", {index, 7}, false, black, black},
        {"white 255", {index, 255}, false, black, white},
        {"true colour", {trueColour, 0x123456}, false, 0x563412, 0x563412},
        {"true white", {trueColour, 0xFFFFFF}, false, black, white},
        {"number out of range", {index, 300}, false, black, black},
        {"monochrome red", {index, 1}, true, black, black},
        {"monochrome white covers", {index, 255}, true, black, white},
        {"by block outside of blocks", {Colour::Kind::byBlock, 0}, false, black, black},
    };
    for (const ColourCase& row : cases) {
        Drawing drawing = emptyDrawing();
        drawing.modelSpace.push_back(lineOn(0));
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
struct InheritanceCase {
    const char* name;
    Colour::Kind lineColour;
    Colour::Kind innerColour;
    uint32_t lineLayer;
    HT_Color expected;
};

TEST(Colours, ComeDownThroughNestedBlocks) {
    constexpr HT_Color red = 0x0000FF, green = 0x00FF00, blue = 0xFF0000;
    const auto byLayer = Colour::Kind::byLayer;
    const auto byBlock = Colour::Kind::byBlock;
    const InheritanceCase cases[] = {
        {"by layer on a layer of its own", byLayer, byLayer, 2, blue},
        {"by layer on layer 0 takes the outer reference's layer", byLayer, byBlock, 0, green},
        {"by block through by block takes the outer reference's colour", byBlock, byBlock, 2, red},
        {"by block through by layer takes the outer reference's layer", byBlock, byLayer, 2, green},
    };
    for (const InheritanceCase& row : cases) {
        Drawing drawing = emptyDrawing();
        drawing.layers.push_back(layerNamed("outer", true, false, true));
        drawing.layers.push_back(layerNamed("own", true, false, true));
        drawing.layers[1].colour = {Colour::Kind::index, 3};
        drawing.layers[2].colour = {Colour::Kind::index, 5};
        Entity line = lineOn(row.lineLayer);
        line.attributes.colour = {row.lineColour, 0};
        Entity inner = entityOf(referenceTo(0));
        inner.attributes.colour = {row.innerColour, 0};
        Entity outer = entityOf(referenceTo(1));
        outer.attributes.layer = 1;
        outer.attributes.colour = {Colour::Kind::index, 1};
        drawing.blocks.push_back({"a", {}, {line}});
        drawing.blocks.push_back({"b", {}, {inner}});
        drawing.modelSpace.push_back(outer);
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
        Drawing drawing = emptyDrawing();
        drawing.layers[0].opacity = 60;
        Entity line = lineOn(0);
        line.attributes.opacity = row.line;
        Entity reference = entityOf(referenceTo(0));
        reference.attributes.opacity = row.reference;
        drawing.blocks.push_back({"a", {}, {line}});
        Entity after = lineOn(0);
        after.attributes.opacity = opaque;
        drawing.modelSpace = {reference, after};
        const auto shapes = shapesOf(drawing);
        ASSERT_EQ(shapes.size(), 2U) << row.name;
        EXPECT_EQ(shapes[0].alpha, row.expected) << row.name;
        EXPECT_EQ(shapes[1].alpha, 255) << row.name;
    }
}

struct WeightCase {
    const char* name;
    LineWeight entity;
    LineWeight layer;
    double scale;
    double expected; ///< device units; a millimetre has 10, a hairline 2
};

TEST(LineWeights, BecomeDeviceUnits) {
    const WeightCase cases[] = {
        {"stated", 100, 13, 1.0, 10.0},
        {"by layer", lineWeightByLayer, 50, 1.0, 5.0},
        {"drawing's default", lineWeightDefault, 50, 1.0, 4.0},
        {"layer's default", lineWeightByLayer, lineWeightDefault, 1.0, 4.0},
        {"by block outside of blocks", lineWeightByBlock, 50, 1.0, 4.0},
        {"scaled", 100, 13, 0.5, 5.0},
        {"zero is a hairline", 0, 50, 1.0, 2.0},
        {"never below a hairline", 5, 50, 1.0, 2.0},
    };
    for (const WeightCase& row : cases) {
        Drawing drawing = emptyDrawing();
        drawing.defaultLineWeight = 40;
        drawing.layers[0].lineWeight = row.layer;
        drawing.modelSpace.push_back(lineOn(0));
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

TEST(Styles, AreSentOnlyWhenTheyChange) {
    Drawing drawing = emptyDrawing();
    drawing.modelSpace.push_back(lineOn(0));
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
