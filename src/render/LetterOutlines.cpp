// SPDX-License-Identifier: BSD-3-Clause
#include "render/LetterOutlines.h"

#include <algorithm>
#include <cmath>

#include <QGlyphRun>
#include <QTextLayout>

namespace KelDriver::Internal {

namespace {

/// Letters that are set one after the other, in the order in which they are written.
bool isPlain(QChar character) {
    constexpr ushort softHyphen = 0xAD;
    const ushort code = character.unicode();
    return (code >= 0x20 && code < 0x7F) || (code > 0xA0 && code <= 0xFF && code != softHyphen);
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
    if (!std::all_of(text.begin(), text.end(), isPlain)) {
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
        const auto [letter, isNew] = known.letters.try_emplace(letters[i]);
        if (isNew) {
            letter->second = segmentsOf(known.raw.pathForGlyph(letters[i]));
        }
        append(letter->second, places[i] - baseLine, path);
    }
    return path;
}

LetterOutlines::Font& LetterOutlines::fontFor(const QRawFont& raw) {
    constexpr size_t mostFonts = 32; // each has as many plain letters as there are, and a few that stand for several
    const auto known = std::find_if(m_fonts.begin(), m_fonts.end(), [&](const Font& font) { return font.raw == raw; });
    if (known != m_fonts.end()) {
        return *known;
    }
    if (m_fonts.size() == mostFonts) {
        m_fonts.clear();
    }
    m_fonts.push_back({raw, {}});
    return m_fonts.back();
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
