// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/TextLayout.h"

#include <cmath>

#include "base/Angles.h"
#include "plot/text/TextLine.h"

namespace kelplot {

namespace {

Vec2 inPlane(const Vec3& p) {
    return {p.x, p.y};
}

bool isStretched(TextColumn column) {
    return column == TextColumn::aligned || column == TextColumn::fit;
}

TextLook lookOf(const Text& text, const TextStyle& style, FontSet& fonts) {
    TextLook look;
    look.font = fonts.choose(style.font, style.bigFontFile);
    look.height = text.height;
    look.widthFactor = text.widthFactor;
    look.obliqueAngle = text.obliqueAngle;
    return look;
}

TextLine lineOf(const Text& text, TextLook look, bool vertical, FontSet& fonts) {
    TextLine line;
    QString whole;
    for (const TextStretch& stretch : text.stretches) {
        const QString part = QString::fromStdString(stretch.text);
        whole += part;
        look.lines = stretch.lines;
        line.append(vertical ? TextLine() : lineOf(part, look, fonts));
    }
    look.lines = {};
    return vertical ? uprightLineOf(whole, look, fonts) : line;
}

/// How far letters one below the other reach down.
double depthOf(const TextLine& line) {
    return line.block.ink.isEmpty() ? 0.0 : -line.block.ink.min.y;
}

/// Makes the line as long as its two points ask for: with letters stretched along it, or larger ones.
TextLook stretched(const Text& text, TextLook look, bool vertical, FontSet& fonts) {
    const double length = (inPlane(text.alignment) - inPlane(text.position)).length();
    const TextLine line = lineOf(text, look, vertical, fonts);
    const double natural = vertical ? depthOf(line) : line.width;
    const double ratio = length / natural;
    if (!(length > 0.0) || !(natural > 0.0) || !std::isfinite(ratio)) {
        return look;
    }
    const bool fits = text.column == TextColumn::fit;
    if (vertical || !fits) {
        look.height *= ratio;
    }
    if (fits) {
        look.widthFactor *= vertical ? 1.0 / ratio : ratio;
    }
    return look;
}

double startOf(TextColumn column, double width) {
    switch (column) {
    case TextColumn::center:
    case TextColumn::middle:
        return -width / 2.0;
    case TextColumn::right:
        return -width;
    default:
        return 0.0;
    }
}

double baseLineOf(TextRow row, double height, double depth) {
    switch (row) {
    case TextRow::bottom:
        return depth;
    case TextRow::middle:
        return -height / 2.0;
    case TextRow::top:
        return -height;
    default:
        return 0.0;
    }
}

/// Where the text starts, seen from the point it hangs on.
Vec2 startOf(const Text& text, const TextLook& look, const TextLine& line, FontSet& fonts) {
    if (isStretched(text.column)) { // between its points, even where it runs backward
        return {text.backward ? -line.width : 0.0, 0.0};
    }
    const double x = startOf(text.column, line.width);
    if (text.column == TextColumn::middle) { // of all that it covers
        return {x, line.block.ink.isEmpty() ? 0.0 : -line.block.ink.center().y};
    }
    const FontMetric& metric = fonts.metric(look.font.face);
    return {x, baseLineOf(text.row, look.height, look.height * metric.depth() / metric.capHeight())};
}

/// The same for letters one below the other, which run downwards: they start, are centred or end there.
Vec2 columnStartOf(TextColumn column, const TextLine& line) {
    return {0.0, -startOf(column, depthOf(line))};
}

Affine2 planeOf(const Text& text, bool vertical) {
    const bool hangs = text.column != TextColumn::left || text.row != TextRow::baseline;
    const Vec2 start = inPlane(text.position);
    const Vec2 end = inPlane(text.alignment);
    const bool stretches = isStretched(text.column);
    const Vec2 along = end - start;
    const double upright = vertical ? turn / 4.0 : 0.0; // from the way that a column runs to its base lines
    const double angle = stretches && along.length() > 0.0 ? std::atan2(along.y, along.x) + upright : text.rotation;
    const Affine2 mirror = Affine2::scaling(text.backward ? -1.0 : 1.0, text.upsideDown ? -1.0 : 1.0);
    return Affine2::translation(hangs && !stretches ? end : start).after(Affine2::rotationRadians(angle)).after(mirror);
}

} // namespace

PlacedText layOut(const Text& text, const TextStyle& style, FontSet& fonts) {
    TextLook look = lookOf(text, style, fonts);
    if (isStretched(text.column)) {
        look = stretched(text, look, style.vertical, fonts);
    }
    const TextLine line = lineOf(text, look, style.vertical, fonts);
    PlacedText placed;
    placed.block.add(line.block, style.vertical ? columnStartOf(text.column, line) : startOf(text, look, line, fonts));
    placed.toPlane = planeOf(text, style.vertical);
    placed.elevation = text.position.z;
    return placed;
}

} // namespace kelplot
