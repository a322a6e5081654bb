// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QTransform>

#include "device/vector/PageShape.h"

namespace kelplot {

/// Writes the text of an SVG document, in large pieces. Coordinates are rounded to a tenth of a unit.
class SvgStream {
public:
    /// @param target  outlives this; takes all that is written and keeps the reason where it cannot
    explicit SvgStream(QIODevice& target) : m_target(target) {}

    /// Adds text as it is.
    SvgStream& operator<<(const char* text);
    SvgStream& operator<<(const QByteArray& text);
    SvgStream& operator<<(int number);
    /// Adds a coordinate or a length.
    SvgStream& operator<<(double number);
    /// Adds a text of any characters as the content of an element or an attribute. What XML cannot hold becomes the
    /// replacement character.
    SvgStream& operator<<(const QString& text);

    /// Adds a number that is not a length, with this many significant digits.
    void addExact(double number, int digits = 7);
    /// Adds "matrix(...)".
    void addMatrix(const QTransform& map);
    enum class CurveEnds { closed, open };
    /// Adds the data of a path. A subpath that ends at its start is closed, unless it ends there with a curve that is
    /// to stay open.
    void addPathData(const PageShape& shape, CurveEnds ends = CurveEnds::closed);

    /// Passes on what there is.
    void flush();

private:
    void addTenths(qint64 tenths);
    void addCoordinates(const qint64* tenths, int count);
    void addLetter(char letter);
    void addStep(const PageShape::Element& to);
    void addLine(const PageShape::Element& to);
    void goTo(const PageShape::Element& place);

    /// Where the data of a path has come to, in tenths of a unit.
    struct PathPen {
        qint64 x = 0;
        qint64 y = 0;
        char letter = 0; ///< of the last command
    };

    QIODevice& m_target;
    QByteArray m_text;
    PathPen m_pen;
};

} // namespace kelplot
