// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>

#include "Vector.h"

namespace vnbase {

/// A box cut into rows and columns of equal cells, numbered row by row.
class Cells {
public:
    /// @param pad  a segment counts as in a cell when it comes this close
    Cells(const Box& box, size_t columns, size_t rows, double pad);

    size_t count() const { return m_columns.count * m_rows.count; }
    /// The cell of a point; for a point outside, the nearest cell.
    size_t cellOf(const Vec& p) const { return m_rows.indexOf(p.y) * m_columns.count + m_columns.indexOf(p.x); }

    /// Calls `visit` with the number of each cell that a segment comes close to.
    template <typename Visit>
    void forEach(const Vec& from, const Vec& to, const Visit& visit) const {
        const Span x = Span::of(from.x, to.x);
        const Span y = Span::of(from.y, to.y);
        if (!m_columns.meets(x, m_pad) || !m_rows.meets(y, m_pad)) {
            return;
        }
        const size_t last = m_rows.indexOf(y.high + m_pad);
        for (size_t row = m_rows.indexOf(y.low - m_pad); row <= last; ++row) {
            const Span part = inRow(row, from, to);
            if (!m_columns.meets(part, m_pad)) {
                continue;
            }
            const size_t lastColumn = m_columns.indexOf(part.high + m_pad);
            for (size_t column = m_columns.indexOf(part.low - m_pad); column <= lastColumn; ++column) {
                visit(row * m_columns.count + column);
            }
        }
    }

private:
    struct Span {
        static Span of(double a, double b) { return a < b ? Span{a, b} : Span{b, a}; }

        double low;
        double high;
    };

    /// One direction of the grid.
    struct Axis {
        size_t indexOf(double value) const {
            const double steps = (value - range.low) * perUnit;
            return steps > 0.0 ? std::min(count - 1, static_cast<size_t>(std::min(steps, 0x1p30))) : 0;
        }
        bool meets(const Span& span, double pad) const {
            return span.low - pad <= range.high && span.high + pad >= range.low;
        }

        Span range;
        size_t count;
        double perUnit; ///< cells
    };

    static Axis axis(double low, double high, size_t count);
    /// The range of x in which a segment is close to a row.
    Span inRow(size_t row, const Vec& from, const Vec& to) const;

    Axis m_columns;
    Axis m_rows;
    double m_pad;
};

} // namespace vnbase
