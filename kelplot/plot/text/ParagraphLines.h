// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "plot/text/TextLine.h"

namespace kelplot {

/// What the paragraphs of a text have in common.
struct ParagraphFrame {
    const TextStyle& style;
    FontSet& fonts;
    double width = 0.0;                                          ///< at which lines are wrapped; 0: they are not
    double usualHeight = 1.0;                                    ///< of a capital letter
    Paragraph::Alignment alignment = Paragraph::Alignment::left; ///< of paragraphs that leave it to the text
    double standInRatio = 1.0;                                   ///< how wide fonts are set that stand for others
};

/// One line of a paragraph, from the origin of its base line. Justified lines are spread already.
struct ParagraphLine {
    TextLine line;                                               ///< its width is without blanks at the end
    double height = 0.0;                                         ///< above the base line
    double indent = 0.0;                                         ///< of the line's place, from the left edge
    double room = 0.0;                                           ///< width of that place; 0 where lines are not wrapped
    Paragraph::Alignment alignment = Paragraph::Alignment::left; ///< left, center or right
};

/// The lines of a paragraph; one at least.
std::vector<ParagraphLine> linesOf(const Paragraph& paragraph, const ParagraphFrame& frame);

} // namespace kelplot
