// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "drawing/Colour.h"
#include "geometry/Vec.h"

namespace kelplot {

/// A font as a drawing names it: the family of an outline font, or the file of any font.
struct FontName {
    std::string name; ///< UTF-8
    bool isFile = false;
    bool bold = false;
    bool italic = false;
};

/// What texts of one style have in common; a text may say otherwise for itself.
struct TextStyle {
    std::string name; ///< UTF-8
    FontName font;
    std::string bigFontFile; ///< for scripts that the font lacks; may be empty
    double height = 0.0;     ///< drawing units; 0: every text states its own
    double widthFactor = 1.0;
    double obliqueAngle = 0.0; ///< radians to the right of upright
    bool backward = false;
    bool upsideDown = false;
    bool vertical = false; ///< characters stand one below the other
};

/// Lines along a stretch of text.
struct TextLines {
    bool under = false;
    bool over = false;
    bool through = false;
};

/// A stretch of a single-line text.
struct TextStretch {
    std::string text; ///< UTF-8, its codes resolved
    TextLines lines;
};

enum class TextColumn : uint8_t { left, center, right, aligned, middle, fit };
enum class TextRow : uint8_t { baseline, bottom, middle, top };

/// A single line of text: TEXT, and the attributes of block references.
///
/// `aligned` and `fit` stretch it from `position` to `alignment`; every other choice but left on the base line hangs
/// it on `alignment`.
struct Text {
    std::vector<TextStretch> stretches;
    uint32_t style = 0; ///< index into Drawing::textStyles
    Vec3 position;
    Vec3 alignment;
    TextColumn column = TextColumn::left;
    TextRow row = TextRow::baseline;
    double height = 1.0; ///< of a capital letter, drawing units
    double rotation = 0.0;
    double widthFactor = 1.0;
    double obliqueAngle = 0.0;
    bool backward = false;
    bool upsideDown = false;
};

/// How a stretch of a paragraph looks, the codes inside the text applied.
struct CharacterFormat {
    std::optional<FontName> font; ///< named inside the text; else that of the style
    std::optional<Colour> colour; ///< named inside the text; else that of the entity
    double height = 1.0;          ///< of a capital letter, drawing units
    double widthFactor = 1.0;     ///< that of the style where nothing inside the text says otherwise
    double obliqueAngle = 0.0;    ///< likewise
    double tracking = 1.0;        ///< distance between characters, 1 the font's own
    TextLines lines;
    enum class Level : uint8_t { bottom, middle, top };
    Level level = Level::bottom; ///< where it stands in a line that is higher than itself
};

struct TextSpan {
    std::string text; ///< UTF-8, its codes resolved; never empty
    CharacterFormat format;
};

/// Two texts one above the other, as of a fraction or a pair of tolerances.
struct TextStack {
    std::string upper; ///< UTF-8
    std::string lower;
    enum class Divider : uint8_t { none, bar, slash };
    Divider divider = Divider::bar;
    CharacterFormat format;
};

struct TextTab {
    CharacterFormat format;
};

using TextPiece = std::variant<TextSpan, TextStack, TextTab>;

struct Paragraph {
    enum class Alignment : uint8_t { byText, left, center, right, justified, distributed };
    std::vector<TextPiece> pieces;
    CharacterFormat format; ///< at its end; an empty line takes its height from it
    Alignment alignment = Alignment::byText;
    double firstIndent = 0.0; ///< of the first line from the left indent, drawing units
    double leftIndent = 0.0;
    double rightIndent = 0.0;
    /// Drawing units from the left edge, rising; null: none. Successive paragraphs share them.
    std::shared_ptr<const std::vector<double>> tabStops;
    bool columnBreakAfter = false;
};

struct TextColumns {
    int count = 1;
    double width = 0.0;
    double gutter = 0.0;
    std::vector<double> heights; ///< one per column where they differ (0: unlimited), one for all, or none
    bool reversed = false;       ///< from right to left
};

/// A text of paragraphs: MTEXT. `attachment` counts from 1, top left, row by row to 9, bottom right.
struct MText {
    std::vector<Paragraph> paragraphs;
    uint32_t style = 0;
    Vec3 position;
    int attachment = 1;
    double rotation = 0.0; ///< radians, in the plane that the extrusion names
    double height = 1.0;   ///< of a capital letter where nothing inside says otherwise
    double width = 0.0;    ///< lines are wrapped at it; 0: they are not
    double depth = 0.0;    ///< from the upper edge to the last base line, in the fonts it is meant for; 0: not known
    double lineSpacing = 1.0;
    bool exactLineSpacing = false; ///< else a line with higher characters pushes the next one down
    bool vertical = false;
    bool masked = false;              ///< a rectangle covers what lies below the text
    std::optional<Colour> maskColour; ///< none: that of the paper
    bool framed = false;              ///< the rectangle's sides are drawn
    double border = 0.0;              ///< how far the rectangle reaches beyond the text, drawing units
    TextColumns columns;
};

} // namespace kelplot
