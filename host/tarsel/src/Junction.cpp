// SPDX-License-Identifier: BSD-3-Clause
#include "Junction.h"

#include <algorithm>

#include "Int128.h"

namespace tarsel {

namespace {

using ClipperLib::IntPoint;

IntPoint difference(const IntPoint& a, const IntPoint& b) {
    return {a.X - b.X, a.Y - b.Y};
}

bool isInLowerHalf(const IntPoint& direction) {
    return direction.Y < 0 || (direction.Y == 0 && direction.X < 0);
}

} // namespace

void Junction::moveTo(const IntPoint& point) {
    m_point = point;
    m_ends.clear();
    m_turns.clear();
}

void Junction::add(VertexIndex vertex, const IntPoint& from, const IntPoint& to) {
    m_ends.push_back({vertex, false, difference(from, m_point)});
    m_ends.push_back({vertex, true, difference(to, m_point)});
}

bool Junction::isBefore(const End& a, const End& b) {
    const bool aIsLower = isInLowerHalf(a.direction);
    const bool bIsLower = isInLowerHalf(b.direction);
    if (aIsLower != bIsLower) {
        return bIsLower;
    }
    return Int128{a.direction.X} * b.direction.Y > Int128{a.direction.Y} * b.direction.X;
}

/// Pairs neighbours of the same direction, one leading in and one out; the rest keep their order.
void Junction::takeTurnsBack() {
    auto left = m_ends.begin();
    for (const End& end : m_ends) {
        const bool isBack = left != m_ends.begin() && left[-1].out != end.out && !isBefore(left[-1], end);
        if (isBack) {
            --left;
            m_turns.push_back(end.out ? Turn{left->vertex, end.vertex} : Turn{end.vertex, left->vertex});
        } else {
            *left++ = end;
        }
    }
    m_ends.erase(left, m_ends.end());
}

const std::vector<Junction::Turn>* Junction::turns() {
    std::sort(m_ends.begin(), m_ends.end(), isBefore);
    takeTurnsBack();
    for (size_t i = 0; i < m_ends.size(); ++i) {
        const End& end = m_ends[i];
        const End& following = m_ends[i + 1 < m_ends.size() ? i + 1 : 0];
        if (end.out == following.out) {
            return nullptr;
        }
        if (end.out) {
            m_turns.push_back({following.vertex, end.vertex});
        }
    }
    return &m_turns;
}

} // namespace tarsel
