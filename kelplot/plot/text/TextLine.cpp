// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/TextLine.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

// In heights of a capital letter.
constexpr double strokeWidth = 0.07;
constexpr double underDistance = 0.25;
constexpr double overDistance = 0.25;

double finiteOr(double value, double otherwise) {
    return std::isfinite(value) ? value : otherwise;
}

/// The ink of a run's em box, leaning as the run does.
Box2 inkOf(const TextRun& run, const Box2& emBox) {
    Box2 box;
    if (!emBox.isEmpty()) {
        const Affine2 place = run.place();
        for (const Vec2 corner : emBox.corners()) {
            box.add(place.mapPoint(corner));
        }
    }
    return box;
}

double widthOf(const FontRun& part, const TextLook& look, const FontMetric& metric) {
    return metric.advanceOf(part.text) * (look.height / metric.capHeight()) * look.widthFactor * part.widthRatio *
           look.tracking;
}

/// Adds a run at the end and advances the end.
void addRun(const FontRun& part, const TextLook& look, FontSet& fonts, TextLine& line) {
    const FontMetric& metric = fonts.metric(part.face);
    const Box2 ink = metric.inkOf(part.text);
    TextRun run;
    run.text = part.text;
    run.face = part.face;
    run.origin = {line.width, 0.0};
    run.emSize = look.height / metric.capHeight();
    run.widthFactor = look.widthFactor * part.widthRatio;
    run.obliqueAngle = look.obliqueAngle;
    run.colour = look.colour;
    line.width += widthOf(part, look, metric);
    if (!ink.isEmpty()) { // blanks only advance
        line.block.ink.add(inkOf(run, ink));
        line.block.runs.push_back(std::move(run));
    }
}

void addLines(const TextLook& look, TextLine& line) {
    const double lean = std::tan(look.obliqueAngle);
    const struct {
        bool drawn;
        double height;
    } lines[] = {{look.lines.under, -underDistance * look.height},
                 {look.lines.through, look.height / 2.0},
                 {look.lines.over, (1.0 + overDistance) * look.height}};
    for (const auto& row : lines) {
        if (row.drawn && line.width > 0.0) {
            const double shift = row.height * lean;
            line.block.addStroke(
                {{shift, row.height}, {line.width + shift, row.height}, strokeWidth * look.height, look.colour});
        }
    }
}

/// Meaningless values would put the text nowhere.
TextLook checked(const TextLook& look) {
    constexpr double steepest = 1.5; // radians
    TextLook result = look;
    result.height = finiteOr(look.height, 0.0);
    result.widthFactor = finiteOr(look.widthFactor, 1.0);
    result.tracking = finiteOr(look.tracking, 1.0);
    result.obliqueAngle = std::clamp(finiteOr(look.obliqueAngle, 0.0), -steepest, steepest);
    return result;
}

/// Calls `use` for every part of a text that is set separately: for single letters where the look spaces them out.
template <typename Use>
void forEachPart(const QString& text, const TextLook& look, FontSet& fonts, Use use) {
    if (!(look.height > 0.0) || look.widthFactor == 0.0) {
        return;
    }
    for (const FontRun& part : fonts.split(text, look.font)) {
        if (look.tracking == 1.0) {
            use(part);
            continue;
        }
        for (const QString& character : graphemesOf(part.text)) {
            use(FontRun{character, part.face, part.widthRatio});
        }
    }
}

} // namespace

QStringList graphemesOf(const QString& text) {
    QStringList characters;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int start = 0;
    for (int end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
        characters << text.mid(start, end - start);
        start = end;
    }
    return characters;
}

void TextLine::append(const TextLine& next) {
    block.add(next.block, {width, 0.0});
    width += next.width;
}

TextLine lineOf(const QString& text, const TextLook& look, FontSet& fonts) {
    TextLine line;
    const TextLook sound = checked(look);
    forEachPart(text, sound, fonts, [&](const FontRun& part) { addRun(part, sound, fonts, line); });
    addLines(sound, line);
    return line;
}

double widthOf(const QString& text, const TextLook& look, FontSet& fonts) {
    const TextLook sound = checked(look);
    double width = 0.0;
    forEachPart(text, sound, fonts,
                [&](const FontRun& part) { width += widthOf(part, sound, fonts.metric(part.face)); });
    return width;
}

TextLine uprightLineOf(const QString& text, const TextLook& look, FontSet& fonts) {
    TextLine column;
    double y = -look.height;
    for (const QString& character : graphemesOf(text)) {
        const TextLine line = lineOf(character, look, fonts);
        column.block.add(line.block, {-line.width / 2.0, y});
        y -= uprightStep * look.height;
    }
    return column;
}

} // namespace kelplot
