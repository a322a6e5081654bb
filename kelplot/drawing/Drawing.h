// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "drawing/Entity.h"

namespace kelplot {

struct Layer {
    std::string name; ///< UTF-8
    Colour colour{Colour::Kind::index, 7};
    uint32_t lineType = 0; ///< index into Drawing::lineTypes
    LineWeight lineWeight = lineWeightDefault;
    Opacity opacity = opaque;
    bool on = true;
    bool frozen = false;
    bool plotted = true; ///< false: shown on screen, kept off paper
};

struct LineType {
    std::string name;            ///< UTF-8
    std::vector<double> pattern; ///< drawing units: positive a dash, negative a gap, 0 a dot; empty: continuous
};

struct Block {
    std::string name; ///< UTF-8
    Vec3 basePoint;
    std::vector<Entity> entities;
    bool defined = true; ///< false: the drawing only refers to it
};

/// A drawing as plain records in drawing units. Entities refer to layers, line types and blocks by index.
struct Drawing {
    std::vector<Layer> layers;         ///< entry 0 is layer "0"
    std::vector<LineType> lineTypes;   ///< entry 0 is "Continuous"
    std::vector<TextStyle> textStyles; ///< entry 0 is "Standard"
    std::vector<ImageDefinition> images;
    std::vector<Block> blocks;
    std::vector<Entity> modelSpace;
    std::vector<Entity> paperSpace;
    size_t dimensionsWithoutBlock = 0; ///< dimensions left out, because no block shows how to draw them
    std::string unknownCodePage;       ///< UTF-8; the code page that it names, if it cannot be decoded
    std::string folder;                ///< UTF-8, where its file lies
    bool imageFrames = true;
    bool wipeoutFrames = false;
    double lineTypeScale = 1.0;
    int pointMode = 0;      ///< how points look: 0 dot, 1 nothing, 2 plus, 3 cross, 4 tick; +32 circle, +64 square
    double pointSize = 0.0; ///< drawing units; negative: per cent of the page; 0: 5 per cent
    LineWeight defaultLineWeight = 25;
    double millimetresPerUnit = 1.0; ///< from the drawing's unit of measurement
};

} // namespace kelplot
