// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "plot/text/ParagraphLines.h"

namespace kelplot {

/// A part of a paragraph that stays on one line.
struct LinePiece {
    enum class Kind : uint8_t { text, stack, tab };
    Kind kind = Kind::text;
    size_t source = 0;    ///< index into Paragraph::pieces
    QString text;         ///< with the blanks that follow it
    double width = 0.0;   ///< with those blanks
    double visible = 0.0; ///< without them
    double height = 0.0;  ///< of a capital letter
    bool breakAfter = false;

    bool endsInBlanks() const { return visible < width; }
};

/// The look of a stretch in a text of this frame.
TextLook lookOf(const CharacterFormat& format, const ParagraphFrame& frame);

/// The characters of a paragraph that decide where lines may end and which way it runs.
QString charactersOf(const Paragraph& paragraph);

QString withoutBlanksAtEnd(const QString& text);

/// The pieces of a paragraph, cut where its script lets lines end.
std::vector<LinePiece> piecesOf(const Paragraph& paragraph, const ParagraphFrame& frame);

} // namespace kelplot
