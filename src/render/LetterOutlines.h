// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <QFont>
#include <QPainterPath>
#include <QPointF>
#include <QRawFont>
#include <QString>

namespace KelDriver::Internal {

/// The outlines of single letters. Fonts take long to give them, and the numbers on a plan differ in their order only.
class LetterOutlines {
public:
    /// What `QPainterPath::addText` makes of a text at the origin, point for point. Empty for texts that are to be left
    /// to it: those that several fonts or scripts share, and those that show nothing.
    QPainterPath join(const QString& text, const QFont& font);

private:
    /// A stretch of an outline at the origin. Fonts have quadratic curves or cubic ones.
    struct Segment {
        enum class Kind { move, line, quadratic, cubic } kind;
        QPointF points[3]; ///< the last one is its end
    };
    using Letter = std::vector<Segment>;
    struct Font {
        QRawFont raw;
        std::unordered_map<uint32_t, Letter> letters; ///< by the font's number for them
    };

    Font& fontFor(const QRawFont& raw);
    const Letter& letterOf(Font& font, uint32_t number);
    static Letter segmentsOf(const QPainterPath& outline);
    static void append(const Letter& letter, QPointF place, QPainterPath& path);

    std::vector<Font> m_fonts;
    size_t m_segments = 0; ///< of all letters
};

} // namespace KelDriver::Internal
