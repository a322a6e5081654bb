// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/svg/SvgStream.h"

#include <cmath>

namespace kelplot {
namespace {

constexpr int pieceSize = 1 << 18; // bytes

qint64 tenthsOf(double number) {
    return std::llround(number * 10.0);
}

bool isAllowed(uint character) {
    const bool isControl = character < 0x20 && character != '\t' && character != '\n' && character != '\r';
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    return !isControl && !isSurrogate && character != 0xFFFE && character != 0xFFFF;
}

QString escaped(const QString& text) {
    QString result;
    for (const uint character : text.toUcs4()) {
        const uint shown = isAllowed(character) ? character : uint(QChar::ReplacementCharacter);
        result += QString::fromUcs4(&shown, 1);
    }
    return result.toHtmlEscaped();
}

} // namespace

SvgStream& SvgStream::operator<<(const char* text) {
    m_text += text;
    if (m_text.size() >= pieceSize) {
        flush();
    }
    return *this;
}

SvgStream& SvgStream::operator<<(const QByteArray& text) {
    m_text += text;
    return *this;
}

SvgStream& SvgStream::operator<<(int number) {
    m_text += QByteArray::number(number);
    return *this;
}

SvgStream& SvgStream::operator<<(double number) {
    addTenths(tenthsOf(number));
    return *this;
}

SvgStream& SvgStream::operator<<(const QString& text) {
    m_text += escaped(text).toUtf8();
    return *this;
}

void SvgStream::addExact(double number, int digits) {
    m_text += QByteArray::number(number, 'g', digits);
}

void SvgStream::addMatrix(const QTransform& map) {
    constexpr int placeDigits = 9; // a place on the largest page keeps its tenths
    m_text += "matrix(";
    for (const double part : {map.m11(), map.m12(), map.m21(), map.m22()}) {
        addExact(part);
        m_text += ' ';
    }
    addExact(map.dx(), placeDigits);
    m_text += ' ';
    addExact(map.dy(), placeDigits);
    m_text += ')';
}

void SvgStream::addTenths(qint64 tenths) {
    char digits[24];
    char* const end = digits + sizeof digits;
    char* at = end;
    const bool isNegative = tenths < 0;
    auto rest = static_cast<quint64>(isNegative ? -tenths : tenths);
    const auto tenth = static_cast<char>('0' + rest % 10);
    rest /= 10;
    if (tenth != '0') {
        *--at = tenth;
        *--at = '.';
    }
    if (rest == 0 && tenth == '0') {
        *--at = '0';
    }
    for (; rest > 0; rest /= 10) {
        *--at = static_cast<char>('0' + rest % 10);
    }
    if (isNegative) {
        *--at = '-';
    }
    m_text.append(at, static_cast<int>(end - at));
}

/// A minus sign parts numbers as well as a blank; after a letter neither is needed.
void SvgStream::addCoordinates(const qint64* tenths, int count) {
    for (int i = 0; i < count; ++i) {
        const bool followsLetter = m_text.at(m_text.size() - 1) >= 'A';
        if (!followsLetter && tenths[i] >= 0) {
            m_text += ' ';
        }
        addTenths(tenths[i]);
    }
}

/// Begins a command, unless it goes on from one of the same letter.
void SvgStream::addLetter(char letter) {
    if (m_pen.letter != letter) {
        m_text += m_pen.letter = letter;
    }
}

/// The step from the rounded place before, so that roundings do not add up.
void SvgStream::addStep(const PageShape::Element& to) {
    const qint64 step[] = {tenthsOf(to.x) - m_pen.x, tenthsOf(to.y) - m_pen.y};
    addCoordinates(step, 2);
}

void SvgStream::addLine(const PageShape::Element& to) {
    const qint64 across = tenthsOf(to.x) - m_pen.x;
    const qint64 down = tenthsOf(to.y) - m_pen.y;
    if (down == 0) {
        addLetter('h');
        addCoordinates(&across, 1);
    } else if (across == 0) {
        addLetter('v');
        addCoordinates(&down, 1);
    } else {
        addLetter('l');
        addStep(to);
    }
}

void SvgStream::goTo(const PageShape::Element& place) {
    m_pen.x = tenthsOf(place.x);
    m_pen.y = tenthsOf(place.y);
}

void SvgStream::addPathData(const PageShape& shape, CurveEnds ends) {
    const std::vector<PageShape::Element>& elements = shape.elements;
    for (size_t start = 0, end = 0; start < elements.size(); start = end) {
        end = shape.endOfSubpath(start);
        const bool endsWithLine = elements[end - 1].type == QPainterPath::LineToElement;
        const bool closes = (endsWithLine || ends == CurveEnds::closed) && shape.isClosed(start, end);
        const qint64 first[] = {tenthsOf(elements[start].x), tenthsOf(elements[start].y)};
        m_text += m_pen.letter = 'M';
        addCoordinates(first, 2);
        goTo(elements[start]);
        for (size_t i = start + 1; i < (closes && endsWithLine ? end - 1 : end); ++i) {
            if (elements[i].type == QPainterPath::LineToElement) {
                addLine(elements[i]);
            } else { // a curve, which takes three elements
                addLetter('c');
                addStep(elements[i]);
                addStep(elements[++i]);
                addStep(elements[++i]);
            }
            goTo(elements[i]);
        }
        if (closes) {
            m_text += m_pen.letter = 'z';
        }
    }
}

void SvgStream::flush() {
    m_target.write(m_text); // the target keeps a failure
    m_text.clear();
    m_text.reserve(pieceSize + pieceSize / 8);
}

} // namespace kelplot
