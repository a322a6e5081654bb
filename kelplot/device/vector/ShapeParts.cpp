// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/vector/ShapeParts.h"

#include <algorithm>
#include <limits>

namespace kelplot {
namespace {

/// What points cover, curves at most.
struct Bounds {
    double left = std::numeric_limits<double>::infinity();
    double top = left;
    double right = -left;
    double bottom = -left;

    void add(const Bounds& other) {
        left = std::min(left, other.left);
        top = std::min(top, other.top);
        right = std::max(right, other.right);
        bottom = std::max(bottom, other.bottom);
    }
    bool isApartFrom(const Bounds& other) const {
        return left > other.right || right < other.left || top > other.bottom || bottom < other.top;
    }
};

Bounds boundsOf(const PageShape& shape, size_t from, size_t to) {
    Bounds bounds;
    for (size_t i = from; i < to; ++i) {
        const PageShape::Element& point = shape.elements[i];
        bounds.add({point.x, point.y, point.x, point.y});
    }
    return bounds;
}

} // namespace

std::vector<size_t> partsOfArea(const PageShape& shape) {
    constexpr size_t fewestElements = 8; // of a part
    constexpr size_t rectangleElements = 5;
    std::vector<size_t> parts = {0};
    Bounds before; // of the parts but the last
    Bounds all;
    for (size_t from = 0; from < shape.elements.size();) {
        const size_t to = shape.endOfSubpath(from);
        const Bounds bounds = boundsOf(shape, from, to);
        // Readers move the sides of a rectangle that stands alone to whole pixels.
        const bool mayPart = std::min(from - parts.back(), to - from) > rectangleElements;
        if (mayPart && bounds.isApartFrom(all)) {
            parts.push_back(from);
            before = all;
        } else if (!bounds.isApartFrom(before)) { // it may touch any of them
            parts = {0};
            before = {};
        }
        all.add(bounds);
        from = to;
    }
    return parts.size() * fewestElements <= shape.elements.size() ? parts : std::vector<size_t>{0};
}

} // namespace kelplot
