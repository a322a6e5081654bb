#include "reader/HatchDecoder.h"

#include <utility>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

// Bits of a loop's code 92.
constexpr int polylineLoop = 2;
constexpr int textBoxLoop = 8;
constexpr int outermostLoop = 16;

} // namespace

void HatchDecoder::begin(std::string_view type) {
    hatch_ = Hatch();
    loop_ = HatchLoop();
    stretch_ = Stretch::head;
    solidCode_ = type == "MPOLYGON" ? 71 : 70;
    inLoop_ = false;
}

void HatchDecoder::take(const Group& group) {
    switch (stretch_) {
    case Stretch::head:
        if (group.code == solidCode_) {
            hatch_.solid = toInteger(group.value) != 0;
        } else if (group.code == 30) {
            hatch_.elevation = toReal(group.value);
        } else if (group.code == 91) {
            stretch_ = Stretch::boundaries;
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
    case 75: // the style of the hatch
    case 76: // the type of its pattern
        endLoop();
        stretch_ = Stretch::pattern;
        break;
    case 92:
        beginLoop(toInteger(group.value));
        break;
    default:
        if (inLoop_ && loopIsPolyline_) {
            takeOfPolyline(group);
        } else if (inLoop_) {
            edge_.take(group, loop_.edges);
        }
        break;
    }
}

void HatchDecoder::takeOfPolyline(const Group& group) {
    if (group.code == 10) {
        loop_.polyline.emplace_back().position.x = toReal(group.value);
    } else if (loop_.polyline.empty()) {
        return;
    } else if (group.code == 20) {
        loop_.polyline.back().position.y = toReal(group.value);
    } else if (group.code == 42) {
        loop_.polyline.back().bulge = toReal(group.value);
    }
}

void HatchDecoder::beginLoop(int flags) {
    endLoop();
    inLoop_ = true;
    loopIsPolyline_ = (flags & polylineLoop) != 0;
    loop_.textBox = (flags & textBoxLoop) != 0;
    loop_.outermost = (flags & outermostLoop) != 0;
    edge_ = HatchEdgeDecoder();
}

void HatchDecoder::endLoop() {
    if (inLoop_ && !loopIsPolyline_) {
        edge_.finish(loop_.edges);
    }
    if (!loop_.edges.empty() || !loop_.polyline.empty()) {
        loop_.edges.shrink_to_fit();
        loop_.polyline.shrink_to_fit();
        hatch_.loops.push_back(std::move(loop_));
    }
    loop_ = HatchLoop();
    inLoop_ = false;
}

void HatchDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    endLoop();
    if (!hatch_.loops.empty()) {
        builder.add(header, std::move(hatch_));
    }
}

} // namespace kelplot
