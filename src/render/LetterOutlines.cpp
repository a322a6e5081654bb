// SPDX-License-Identifier: BSD-3-Clause
#include "render/LetterOutlines.h"

#include <algorithm>
#include <cmath>

#include <QGlyphRun>
#include <QTextLayout>

namespace KelDriver::Internal {

namespace {

/// Whether a character has a shape of its own, in whatever script; others change how a text is set.
bool hasShape(QChar character) {
    return character == QLatin1Char(' ') || character.isLetterOrNumber() || character.isMark() || character.isPunct() ||
           character.isSymbol();
}

/// Fonts give the points of an outline in sixty-fourths of a pixel.
constexpr double unitsPerPixel = 64;

bool isOnGrid(QPointF point) {
    const auto isWhole = [](double units) {
        return units == std::nearbyint(units);
    };
    return isWhole(point.x() * unitsPerPixel) && isWhole(point.y() * unitsPerPixel);
}

/// The one control point that a quadratic curve had before it became a cubic one.
QPointF controlOf(QPointF start, QPointF firstControl) {
    const QPointF control = (3 * firstControl - start) / 2 * unitsPerPixel;
    return QPointF(std::nearbyint(control.x()), std::nearbyint(control.y())) / unitsPerPixel;
}

} // namespace

QPainterPath LetterOutlines::join(const QString& text, const QFont& font) {
    QPainterPath path;
    if (!std::all_of(text.begin(), text.end(), hasShape)) {
        return path;
    }
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    if (runs.size() != 1) {
        return path;
    }
    Font& known = fontFor(runs.front().rawFont());
    const QVector<quint32> letters = runs.front().glyphIndexes();
    const QVector<QPointF> places = runs.front().positions();
    const QPointF baseLine(0, line.y() + line.ascent());
    for (int i = 0; i < letters.size(); ++i) {
        append(letterOf(known, letters[i]), places[i] - baseLine, path);
    }
    return path;
}

LetterOutlines::Font& LetterOutlines::fontFor(const QRawFont& raw) {
    constexpr size_t mostFonts = 64;
    constexpr size_t mostSegments = size_t{1} << 17; // some megabytes
    if (m_fonts.size() > mostFonts || m_segments > mostSegments) {
        m_fonts.clear();
        m_segments = 0;
    }
    const auto known = std::find_if(m_fonts.begin(), m_fonts.end(), [&](const Font& font) { return font.raw == raw; });
    return known != m_fonts.end() ? *known : m_fonts.emplace_back(Font{raw, {}});
}

const LetterOutlines::Letter& LetterOutlines::letterOf(Font& font, uint32_t number) {
    const auto [letter, isNew] = font.letters.try_emplace(number);
    if (isNew) {
        letter->second = segmentsOf(font.raw.pathForGlyph(number));
        m_segments += letter->second.size();
    }
    return letter->second;
}

LetterOutlines::Letter LetterOutlines::segmentsOf(const QPainterPath& outline) {
    Letter letter;
    QPointF start;
    for (int i = 0; i < outline.elementCount(); ++i) {
        const QPainterPath::Element element = outline.elementAt(i);
        if (element.type == QPainterPath::CurveToElement) {
            const QPointF second = outline.elementAt(i + 1);
            const QPointF end = outline.elementAt(i + 2);
            // On the grid both kinds of curve come out the same, whichever is drawn.
            const bool cubic = isOnGrid(element) && isOnGrid(second);
            letter.push_back(cubic ? Segment{Segment::Kind::cubic, {element, second, end}}
                                   : Segment{Segment::Kind::quadratic, {{}, controlOf(start, element), end}});
            i += 2;
        } else {
            const bool moves = element.type == QPainterPath::MoveToElement;
            letter.push_back({moves ? Segment::Kind::move : Segment::Kind::line, {{}, {}, element}});
        }
        start = letter.back().points[2];
    }
    return letter;
}

/// The points are placed before a curve is converted, since the conversion rounds.
void LetterOutlines::append(const Letter& letter, QPointF place, QPainterPath& path) {
    for (const Segment& segment : letter) {
        const QPointF end = segment.points[2] + place;
        switch (segment.kind) {
        case Segment::Kind::move:
            path.moveTo(end);
            break;
        case Segment::Kind::line:
            path.lineTo(end);
            break;
        case Segment::Kind::quadratic:
            path.quadTo(segment.points[1] + place, end);
            break;
        case Segment::Kind::cubic:
            path.cubicTo(segment.points[0] + place, segment.points[1] + place, end);
            break;
        }
    }
}

} // namespace KelDriver::Internal
