// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/vector/PageShape.h"

#include <QRectF>
#include <algorithm>
#include <cmath>

namespace kelplot {
namespace {

bool areSame(const PageShape::Element& a, const PageShape::Element& b) {
    return a.type == b.type && a.x == b.x && a.y == b.y;
}

} // namespace

void PageShape::add(double x, double y, QPainterPath::ElementType type) {
    Element element{};
    // A coordinate that is not a number passes the bounds, for `isFinite` to find.
    element.x = x > farthest ? farthest : x < -farthest ? -farthest : x;
    element.y = y > farthest ? farthest : y < -farthest ? -farthest : y;
    element.type = type;
    elements.push_back(element);
}

bool PageShape::isFinite() const {
    return std::none_of(elements.begin(), elements.end(),
                        [](const Element& element) { return std::isnan(element.x) || std::isnan(element.y); });
}

bool PageShape::isRectangle(QRectF& rectangle) const {
    constexpr size_t corners = 4;
    if (elements.size() < corners || elements.size() > corners + 1 || endOfSubpath(0) != elements.size() ||
        (elements.size() > corners && !isClosed(0, elements.size()))) {
        return false;
    }
    const Element& first = elements[0];
    const Element& opposite = elements[2];
    const auto isCorner = [](const Element& at, double x, double y) {
        return at.type == QPainterPath::LineToElement && at.x == x && at.y == y;
    };
    const bool acrossFirst = isCorner(elements[1], opposite.x, first.y) && isCorner(elements[3], first.x, opposite.y);
    const bool downFirst = isCorner(elements[1], first.x, opposite.y) && isCorner(elements[3], opposite.x, first.y);
    if (!(acrossFirst || downFirst) || opposite.type != QPainterPath::LineToElement) {
        return false;
    }
    rectangle = QRectF(QPointF(std::min(first.x, opposite.x), std::min(first.y, opposite.y)),
                       QPointF(std::max(first.x, opposite.x), std::max(first.y, opposite.y)));
    return true;
}

size_t PageShape::endOfSubpath(size_t start) const {
    size_t end = start + 1;
    while (end < elements.size() && elements[end].type != QPainterPath::MoveToElement) {
        ++end;
    }
    return end;
}

bool PageShape::isClosed(size_t start, size_t end) const {
    constexpr size_t oneLine = 2;
    return end > start + oneLine && elements[start].x == elements[end - 1].x &&
           elements[start].y == elements[end - 1].y;
}

bool PageShape::operator==(const PageShape& other) const {
    return rule == other.rule &&
           std::equal(elements.begin(), elements.end(), other.elements.begin(), other.elements.end(), areSame);
}

} // namespace kelplot
