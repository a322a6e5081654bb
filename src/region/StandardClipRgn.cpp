// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/VornRgn.h"
#include "region/RgnList.h"

using namespace KelDriver::Internal;

namespace {

HT_Double_Rectangle boxOfList(const HT_ClipRgn* rgn) {
    HT_Double_Rectangle box = boxOf(rgn->points[0]);
    for (const HT_ClipRgn* node = rgn; node; node = node->next) {
        for (int i = 0; i < vertexCount(*node); ++i) {
            growBox(box, node->points[i]);
        }
    }
    return box;
}

} // namespace

bool KelDriver::HT_StandardClipRgn(HT_ClipRgn* rgn, HT_Double_Rectangle* rect) {
    if (!rgn || vertexCount(*rgn) == 0) {
        return false;
    }
    PolyAlgoOperator::ClipRgnOperator(rgn);
    if (vertexCount(*rgn) == 0) {
        return false;
    }
    if (!rgn->next && rgn->pointCount == 4) {
        return IsRect(rgn->points, rect);
    }
    if (rect) {
        *rect = boxOfList(rgn);
    }
    return false;
}
