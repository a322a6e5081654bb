// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/BoxTree.h"

namespace kelplot {

BoxTree::BoxTree(const std::vector<Box2>& boxes) {
    m_entries.reserve(boxes.size());
    for (const Box2& box : boxes) {
        m_entries.push_back({box, m_entries.size()});
    }
    if (!m_entries.empty()) {
        build(0, m_entries.size());
    }
}

void BoxTree::build(size_t first, size_t last) {
    constexpr size_t leafSize = 8;
    const size_t at = m_nodes.size();
    Node node;
    for (size_t i = first; i < last; ++i) {
        node.box.add(m_entries[i].box);
    }
    if (last - first <= leafSize) {
        node.next = at + 1;
        node.first = first;
        node.last = last;
        m_nodes.push_back(node);
        return;
    }
    m_nodes.push_back(node);
    double Vec2::*const axis = node.box.width() > node.box.height() ? &Vec2::x : &Vec2::y;
    const size_t middle = first + (last - first) / 2;
    const auto entry = [this](size_t number) {
        return m_entries.begin() + static_cast<std::ptrdiff_t>(number);
    };
    std::nth_element(entry(first), entry(middle), entry(last),
                     [axis](const Entry& a, const Entry& b) { return a.box.center().*axis < b.box.center().*axis; });
    build(middle, last);
    build(first, middle);
    m_nodes[at].next = m_nodes.size();
}

} // namespace kelplot
