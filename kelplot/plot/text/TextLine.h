// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Text.h"
#include "plot/text/FontSet.h"
#include "plot/text/TextBlock.h"

namespace kelplot {

/// How the characters of a stretch of text look.
struct TextLook {
    FontChoice font;
    double height = 1.0; ///< of a capital letter, drawing units
    double widthFactor = 1.0;
    double obliqueAngle = 0.0;
    double tracking = 1.0; ///< distance between characters, 1 the font's own
    std::optional<Colour> colour;
    TextLines lines;
};

/// A stretch of text on a base line that starts at the origin.
struct TextLine {
    TextBlock block;
    double width = 0.0;

    /// Appends what continues where this line ends.
    void append(const TextLine& next);
};

TextLine lineOf(const QString& text, const TextLook& look, FontSet& fonts);
/// The width of that line, which is found faster than all of it.
double widthOf(const QString& text, const TextLook& look, FontSet& fonts);

/// The characters of a text as people see them, with their marks.
QStringList graphemesOf(const QString& text);

/// From a character to the one below it, in heights of a capital letter.
constexpr double uprightStep = 26.0 / 21.0;

/// The characters one below the other, centred on the origin and down from it. `width` stays 0.
TextLine uprightLineOf(const QString& text, const TextLook& look, FontSet& fonts);

} // namespace kelplot
