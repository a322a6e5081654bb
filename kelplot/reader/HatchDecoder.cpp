// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/HatchDecoder.h"

#include <utility>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

// Bits of a loop's code 92.
constexpr int polylineLoop = 2;
constexpr int textBoxLoop = 8;

HatchStyle styleOf(int number) {
    switch (number) {
    case 1:
        return HatchStyle::outer;
    case 2:
        return HatchStyle::ignore;
    default:
        return HatchStyle::normal;
    }
}

} // namespace

void HatchDecoder::begin(std::string_view type) {
    m_hatch = Hatch();
    m_loop = HatchLoop();
    m_stretch = Stretch::head;
    m_solidCode = type == "MPOLYGON" ? 71 : 70;
    m_inLoop = false;
}

void HatchDecoder::take(const Group& group) {
    switch (m_stretch) {
    case Stretch::head:
        if (group.code == m_solidCode) {
            m_hatch.solid = toInteger(group.value) != 0;
        } else if (group.code == 30) {
            m_hatch.elevation = toReal(group.value);
        } else if (group.code == 91) {
            m_stretch = Stretch::boundaries;
        }
        break;
    case Stretch::boundaries:
        takeOfBoundaries(group);
        break;
    case Stretch::pattern:
        break;
    }
}

void HatchDecoder::takeOfBoundaries(const Group& group) {
    switch (group.code) {
    case 75:
        m_hatch.style = styleOf(toInteger(group.value));
        [[fallthrough]];
    case 76: // the type of its pattern
        endLoop();
        m_stretch = Stretch::pattern;
        break;
    case 92:
        beginLoop(toInteger(group.value));
        break;
    default:
        if (m_inLoop && m_loopIsPolyline) {
            takeOfPolyline(group);
        } else if (m_inLoop) {
            m_edge.take(group, m_loop.edges);
        }
        break;
    }
}

void HatchDecoder::takeOfPolyline(const Group& group) {
    if (group.code == 10) {
        m_loop.polyline.emplace_back().position.x = toReal(group.value);
    } else if (m_loop.polyline.empty()) {
        return;
    } else if (group.code == 20) {
        m_loop.polyline.back().position.y = toReal(group.value);
    } else if (group.code == 42) {
        m_loop.polyline.back().bulge = toReal(group.value);
    }
}

void HatchDecoder::beginLoop(int flags) {
    endLoop();
    m_inLoop = true;
    m_loopIsPolyline = (flags & polylineLoop) != 0;
    m_loop.textBox = (flags & textBoxLoop) != 0;
    m_edge = HatchEdgeDecoder();
}

void HatchDecoder::endLoop() {
    if (m_inLoop && !m_loopIsPolyline) {
        m_edge.finish(m_loop.edges);
    }
    if (!m_loop.edges.empty() || !m_loop.polyline.empty()) {
        m_loop.edges.shrink_to_fit();
        m_loop.polyline.shrink_to_fit();
        m_hatch.loops.push_back(std::move(m_loop));
    }
    m_loop = HatchLoop();
    m_inLoop = false;
}

void HatchDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    endLoop();
    if (!m_hatch.loops.empty()) {
        builder.add(header, std::move(m_hatch));
    }
}

} // namespace kelplot
