// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "geometry/Box2.h"

namespace kelplot {

/// Many boxes, arranged so that those in one place are found without looking at all.
class BoxTree {
public:
    explicit BoxTree(const std::vector<Box2>& boxes);

    /// Calls `take` with the number of each box that meets `wanted`; touching counts. Boxes further up and right
    /// come early, and `take` may narrow `wanted` as it goes.
    template <typename Take>
    void search(const Box2& wanted, Take&& take) const;

private:
    struct Entry {
        Box2 box;
        size_t number = 0;
    };
    /// A node is followed by its children, if any, and all that is below them.
    struct Node {
        Box2 box;
        size_t next = 0;  ///< the first node that is not below this one
        size_t first = 0; ///< of the entries of a leaf
        size_t last = 0;  ///< one beyond; the same as `first` for other nodes
    };

    void build(size_t first, size_t last);

    std::vector<Entry> m_entries;
    std::vector<Node> m_nodes;
};

template <typename Take>
void BoxTree::search(const Box2& wanted, Take&& take) const {
    for (size_t at = 0; at < m_nodes.size();) {
        const Node& node = m_nodes[at];
        if (!node.box.intersects(wanted)) {
            at = node.next;
            continue;
        }
        for (size_t i = node.first; i < node.last; ++i) {
            if (m_entries[i].box.intersects(wanted)) {
                take(m_entries[i].number);
            }
        }
        ++at;
    }
}

} // namespace kelplot
