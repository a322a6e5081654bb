// SPDX-License-Identifier: BSD-3-Clause
#include "Cells.h"

namespace vnbase {

Cells::Cells(const Box& box, size_t columns, size_t rows, double pad)
    : m_columns(axis(box.low.x, box.high.x, columns)), m_rows(axis(box.low.y, box.high.y, rows)), m_pad(pad) {
}

Cells::Axis Cells::axis(double low, double high, size_t count) {
    return {{low, high}, count, static_cast<double>(count) / (high - low)};
}

Cells::Span Cells::inRow(size_t row, const Vec& from, const Vec& to) const {
    const Span x = Span::of(from.x, to.x);
    const double rise = to.y - from.y;
    if (rise == 0.0) {
        return x;
    }
    const auto xAt = [&](double y) {
        return std::clamp(from.x + (to.x - from.x) * std::clamp((y - from.y) / rise, 0.0, 1.0), x.low, x.high);
    };
    const double bottom = m_rows.range.low + static_cast<double>(row) / m_rows.perUnit;
    const double top = m_rows.range.low + static_cast<double>(row + 1) / m_rows.perUnit;
    return Span::of(xAt(bottom - m_pad), xAt(top + m_pad));
}

} // namespace vnbase
