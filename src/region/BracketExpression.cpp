// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <deque>
#include <utility>

#include "keldriver/VornRgn.h"
#include "region/RgnList.h"

using namespace KelDriver::Internal;

namespace {

/// The brackets that one contour opened: the region before them, the operation that will join what the
/// outermost of them holds, and how many are still open. The others only group.
struct Level {
    CVornRgn before;
    int operation;
    int open;
};

void makeEmpty(CVornRgn& rgn) {
    rgn.DeleteObject();
    rgn.m_nType = rgnKind::empty;
}

/// Hands over the contents of `source`, which is left empty.
void take(CVornRgn& target, CVornRgn& source) {
    target.DeleteObject();
    target.m_nType = std::exchange(source.m_nType, rgnKind::empty);
    target.m_rcBox = std::exchange(source.m_rcBox, {});
    target.m_pClipRgn = std::exchange(source.m_pClipRgn, nullptr);
}

class Evaluation {
public:
    Evaluation() {
        makeEmpty(m_accumulator);
        makeEmpty(m_scratch);
    }

    /// @return false when more brackets are closed than are open
    bool add(const HT_ClipRgn& node);
    const CVornRgn& result() const { return m_accumulator; }

private:
    void open(int brackets, const HT_ClipRgn& node);
    bool close(int brackets);
    void join(int operation) { m_accumulator.CombineRgn(&m_accumulator, &m_scratch, HT_RGN_OP_2_CDC_OP(operation)); }

    std::deque<Level> m_levels;
    CVornRgn m_accumulator;
    CVornRgn m_scratch;
};

void load(CVornRgn& rgn, const HT_ClipRgn& node) {
    constexpr int winding = 1;
    rgn.CreatePolygonRgn(node.points, node.pointCount, winding);
}

bool Evaluation::add(const HT_ClipRgn& node) {
    // Unshifted, so that one opening step counts 256 brackets and one closing step 4096: part of the interface.
    const int brackets = (node.mode & 0xF00) - (node.mode & 0xF000);
    if (brackets < 0) {
        return close(-brackets);
    }
    if (brackets > 0) {
        open(brackets, node);
        return true;
    }
    load(m_scratch, node);
    join(node.mode & 0xFF);
    return true;
}

void Evaluation::open(int brackets, const HT_ClipRgn& node) {
    m_levels.push_back({CVornRgn(), node.mode & 0xFF, brackets});
    take(m_levels.back().before, m_accumulator);
    load(m_accumulator, node);
}

bool Evaluation::close(int brackets) {
    while (brackets > 0) {
        if (m_levels.empty()) {
            return false;
        }
        Level& level = m_levels.back();
        const int closed = std::min(brackets, level.open);
        brackets -= closed;
        level.open -= closed;
        if (level.open == 0) {
            take(m_scratch, m_accumulator);
            take(m_accumulator, level.before);
            join(level.operation);
            m_levels.pop_back();
        }
    }
    return true;
}

} // namespace

void CVornRgn::StandardRgn() {
    static int show = 0; // how many expressions closed too many brackets; the library never reads it
    Evaluation evaluation;
    for (const HT_ClipRgn* node = m_pClipRgn; node; node = node->next) {
        if (!evaluation.add(*node)) {
            ++show;
            return;
        }
    }
    CopyFrom(evaluation.result());
}
