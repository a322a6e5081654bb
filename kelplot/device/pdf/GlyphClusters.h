// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QFont>
#include <QPointF>
#include <QRawFont>
#include <QString>
#include <vector>

namespace kelplot {

/// A glyph in its place, in the units of the font, y downwards and the origin at the start of the base line.
struct PlacedGlyph {
    uint32_t index;
    QPointF at;
};

/// Glyphs of one font that show some characters together.
struct GlyphCluster {
    QRawFont font;
    std::vector<PlacedGlyph> glyphs;
    QString characters;
};

/// The glyphs of a text on one line, from left to right, as the outlines of the text have them.
std::vector<GlyphCluster> glyphClusters(const QString& text, const QFont& font);

} // namespace kelplot
