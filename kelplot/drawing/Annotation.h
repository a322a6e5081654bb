// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "drawing/Entity.h"
#include "geometry/Vec.h"

namespace kelplot {

/// How the lines of a part of a dimension look; as the dimension itself where nothing else is said.
struct PartLook {
    Colour colour{Colour::Kind::byBlock, 0};
    uint32_t lineType = lineTypeByBlock; ///< index into Drawing::lineTypes, or a mark
    LineWeight lineWeight = lineWeightByBlock;
};

/// One of the two ends of a dimension.
struct DimensionEnd {
    uint32_t arrow = noBlock; ///< index into Drawing::blocks of its arrow head, which points along x to the origin
    PartLook extensionLine;
    bool hasExtensionLine = true;
    bool hasLine = true; ///< its half of the dimension line, and its arrow head
};

/// How a dimension looks. Lengths are drawing units, the scale of dimensions applied.
struct DimensionLook {
    std::array<DimensionEnd, 2> ends;
    PartLook line; ///< of the dimension line
    Colour textColour{Colour::Kind::byBlock, 0};
    double arrowSize = 0.18;
    double tickSize = 0.0;         ///< not 0: slanting ticks instead of arrow heads, of half this length along the line
    double lineBeyond = 0.0;       ///< how far a line with ticks goes on beyond them
    double extensionGap = 0.0625;  ///< from the measured point to its extension line
    double extensionBeyond = 0.18; ///< how far extension lines go on beyond the dimension line
    double extensionLength = 0.0;  ///< not 0: extension lines are this long at most, before the dimension line
    double gap = 0.09;             ///< around the text
    double centreMark = 0.0;       ///< half its size; negative: with centre lines
    double textRise = 0.0;         ///< of a text in the line, in heights of its letters
    enum class TextRow : uint8_t { inLine, above, below } textRow = TextRow::inLine;
    bool levelInside = true;  ///< a text between the extension lines is level
    bool levelOutside = true; ///< so is one outside
    bool lineInside = false;  ///< the line is drawn between the extension lines even where the arrow heads are outside
    /// Where a text goes that was moved or finds no room.
    enum class TextMove : uint8_t { besideLine, withLeader, freely } textMove = TextMove::besideLine;
    /// Along the line: in its middle, next to an extension line, or above one and along it.
    enum class TextPlace : uint8_t { middle, first, second, aboveFirst, aboveSecond } textPlace = TextPlace::middle;
    /// What stays between the extension lines where not all finds room there.
    enum class Fit : uint8_t { none, text, heads, textOrHeads } fit = Fit::textOrHeads;
    bool textForcedInside = false; ///< the text stays between the extension lines whether it fits or not
    bool noLineOutside = false;    ///< arrow heads that find no room beside such a text are left out
};

/// A dimension by what it measures, for a drawing that does not hold its lines. Points lie in the plane of the entity.
struct Dimension {
    enum class Kind : uint8_t {
        rotated,
        aligned,
        angleOfLines,
        diameter,
        radius,
        angleOfPoints,
        ordinate,
        other
    } kind = Kind::other;
    Vec3 extrusion{0.0, 0.0, 1.0};
    double elevation = 0.0;
    Vec2 line;  ///< a point of the dimension line; the centre, one end of the diameter, or the origin of ordinates
    Vec2 first; ///< the measured points, or the first of two lines
    Vec2 second;
    Vec2 side; ///< where a radius or diameter ends, where two arms meet, or the start of the second of two lines
    Vec2 arc;  ///< a point of the dimension arc between two lines
    double direction = 0.0; ///< radians, of a rotated dimension line
    double oblique = 0.0;   ///< radians from there to the extension lines; 0: upright
    double level = 0.0;     ///< radians, of level texts and the x axis of ordinates
    bool ordinateOfX = false;
    std::string type;               ///< of its record, for a message
    std::optional<MText> text;      ///< about its middle
    bool textPlaced = false;        ///< its position is stated
    bool textMoved = false;         ///< by hand, from where its style puts it
    std::optional<double> textTurn; ///< radians, where the text has a direction of its own
    DimensionLook look;
};

/// A frame with the tolerances of a feature: rows of cells. It lies in the plane of the entity.
struct ToleranceFrame {
    Vec3 extrusion{0.0, 0.0, 1.0};
    Vec3 position;         ///< of the middle of its first row's left side
    double rotation = 0.0; ///< radians
    std::vector<std::vector<MText>> rows;
    PartLook line;
    Colour textColour{Colour::Kind::byBlock, 0};
    double textHeight = 0.18;
    double gap = 0.09; ///< around the texts
};

/// What a plot draws without a block of the drawing.
using Annotation = std::variant<Dimension, ToleranceFrame>;

} // namespace kelplot
