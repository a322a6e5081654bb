// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "drawing/Annotation.h"
#include "drawing/Entity.h"
#include "geometry/Box2.h"

namespace kelplot {

struct Layer {
    std::string name; ///< UTF-8
    Colour colour{Colour::Kind::index, 7};
    uint32_t lineType = 0; ///< index into Drawing::lineTypes
    LineWeight lineWeight = lineWeightDefault;
    Opacity opacity = opaque;
    PlotStyleIndex plotStyle = 0; ///< index into Drawing::plotStyles
    bool on = true;
    bool frozen = false;
    bool plotted = true; ///< false: shown on screen, kept off paper
};

/// A text that stands in a line type.
struct LineTypeText {
    double at = 0.0;    ///< from where the pattern begins, in its units
    Vec2 offset;        ///< from there along the line, and to its left
    Text text;          ///< on a line that runs to the right
    bool level = false; ///< it is turned as stated, whatever way the line runs
};

struct LineType {
    std::string name;            ///< UTF-8
    std::vector<double> pattern; ///< drawing units: positive a dash, negative a gap, 0 a dot; empty: continuous
    std::vector<LineTypeText> texts{};
    bool lacksShapes = false; ///< the pattern runs through where shapes should stand
    bool defined = true;      ///< false: the drawing only refers to it
};

struct Block {
    std::string name; ///< UTF-8
    Vec3 basePoint;
    std::vector<Entity> entities;
    bool defined = true;       ///< false: the drawing only refers to it
    std::string externalPath;  ///< UTF-8; not empty: its content is that of another drawing, which was not read
    std::string externalFault; ///< why not; empty: there is no such file
    bool overlay = false;      ///< of another drawing, which only shows where this one is not such a drawing itself
};

/// What a reference shows of its block.
struct ReferenceClip {
    std::vector<Vec3> border;  ///< in the block's coordinates; empty: everything shows
    Vec3 depth{0.0, 0.0, 1.0}; ///< along which the border cuts, in the block's coordinates
    size_t crossings = 0;      ///< of the border with itself
    bool inverted = false;     ///< what lies within the border is left out
    bool slices = false;       ///< the drawing wants it cut in ways that a plot cannot
};

/// How the lines of multilines look.
struct MlineStyle {
    struct Line {
        Colour colour;
        uint32_t lineType = lineTypeByLayer;
    };
    /// What closes the lines at an end.
    struct Cap {
        bool line = false;
        bool outerArc = false;
        bool innerArcs = false;
    };
    std::vector<Line> lines;
    std::optional<Colour> fill;
    bool joints = false; ///< lines across every bend
    Cap start;
    Cap end;
};

/// How the sheet of a layout is to be plotted. Lengths are millimetres.
struct PlotSettings {
    enum class Area { sheet, extents, window };

    double paperWidth = 0.0; ///< before it is turned; 0: none stated
    double paperHeight = 0.0;
    int quarterTurns = 0; ///< by which the drawing is turned to the left on the paper
    double leftMargin = 0.0, bottomMargin = 0.0, rightMargin = 0.0, topMargin = 0.0; ///< before it is turned
    Vec2 origin;                     ///< of the plot, from the lower left corner of what the margins leave
    double millimetresPerUnit = 1.0; ///< of the sheet's coordinates, at full scale
    double scale = 1.0;
    bool fitted = false; ///< as large as the paper allows, at no stated scale
    bool centred = false;
    Area area = Area::sheet;
    Box2 window;            ///< in the sheet's coordinates, where the area is one
    std::string styleTable; ///< UTF-8, the name of its file of plot styles; may be empty
};

/// A sheet of paper with what is drawn on it.
struct Layout {
    std::string name;         ///< UTF-8
    int order = 0;            ///< among the layouts
    uint32_t block = noBlock; ///< the block with its entities; none: Drawing::paperSpace
    PlotSettings settings;
};

/// A drawing as plain records in drawing units. Entities refer to layers, line types and blocks by index.
struct Drawing {
    std::vector<Layer> layers;         ///< entry 0 is layer "0"
    std::vector<LineType> lineTypes;   ///< entry 0 is "Continuous"
    std::vector<TextStyle> textStyles; ///< entry 0 is "Standard"
    std::vector<ImageDefinition> images;
    std::vector<MlineStyle> mlineStyles;
    std::vector<Block> blocks;
    std::vector<ReferenceClip> clips;
    std::vector<Annotation> annotations;
    std::vector<Entity> modelSpace;
    std::vector<Entity> paperSpace; ///< of the layout that was looked at last
    std::vector<Layout> layouts;    ///< in their order; none where the drawing does not name them
    PlotSettings modelSettings;     ///< of model space
    bool paperIsActive = false;     ///< the drawing was saved with a layout before its user's eyes
    bool paperLineTypes = true;     ///< dashes have their lengths on the sheet, whatever the scale of a viewport
    bool namesPlotStyles = false;   ///< plot styles go by their names; else by colours
    std::vector<std::string> plotStyles{"Normal"}; ///< names in UTF-8; empty where the drawing does not tell one
    std::vector<std::string> unplottedKinds;       ///< what `Unplotted` entities are, for a message
    std::string unknownCodePage;                   ///< UTF-8; the code page that it names, if it cannot be decoded
    std::string folder;                            ///< UTF-8, where its file lies
    Vec3 basePoint;                                ///< for references to it
    bool imageFrames = true;
    bool wipeoutFrames = false;
    bool clipFrames = false; ///< the borders of clips are lines on paper
    double lineTypeScale = 1.0;
    bool metric = true;     ///< named hatch patterns are meant in millimetres; else in inches
    int pointMode = 0;      ///< how points look: 0 dot, 1 nothing, 2 plus, 3 cross, 4 tick; +32 circle, +64 square
    double pointSize = 0.0; ///< drawing units; negative: per cent of the page; 0: 5 per cent
    LineWeight defaultLineWeight = 25;
    double millimetresPerUnit = 1.0; ///< from the drawing's unit of measurement
};

} // namespace kelplot
