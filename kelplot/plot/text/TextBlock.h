// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <cmath>
#include <optional>
#include <vector>

#include "drawing/Colour.h"
#include "geometry/Affine2.h"
#include "geometry/Box2.h"
#include "geometry/PlanMap.h"
#include "plot/text/FontMetric.h"

namespace kelplot {

/// A text of one font, as it is drawn in one go.
struct TextRun {
    QString text;
    FontFace face;
    Vec2 origin;         ///< of the base line
    double emSize = 1.0; ///< of the font's em square
    double widthFactor = 1.0;
    double obliqueAngle = 0.0;
    std::optional<Colour> colour; ///< none: that of the entity

    /// From the em square, y upwards, to where the run lies.
    Affine2 place() const {
        return {emSize * widthFactor, 0.0, emSize * std::tan(obliqueAngle), emSize, origin.x, origin.y};
    }
};

/// A line that goes with a text: along it, or between the parts of a fraction.
struct TextStroke {
    Vec2 from;
    Vec2 to;
    double width = 0.0;
    std::optional<Colour> colour; ///< none: that of the entity
};

/// Text that is measured and laid out, in drawing units, x along its base lines and y upwards.
struct TextBlock {
    std::vector<TextRun> runs;
    std::vector<TextStroke> strokes;
    Box2 ink; ///< what they cover

    /// Adds a copy of `other`, moved.
    void add(const TextBlock& other, Vec2 by);
    void addStroke(const TextStroke& stroke);
};

/// A text as it lies in the plane of its entity.
struct PlacedText {
    TextBlock block;
    Box2 frame;      ///< of a text of paragraphs: the rectangle that it was given
    Affine2 toPlane; ///< from the block's coordinates
    double elevation = 0.0;

    /// From the block's coordinates to where `map` takes those of the entity.
    PlanMap through(const PlanMap& map) const;
    /// What `part` of the block covers, as seen through `map`.
    Box2 boxThrough(const Box2& part, const PlanMap& map) const;
};

} // namespace kelplot
