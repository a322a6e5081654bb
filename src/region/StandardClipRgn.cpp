// SPDX-License-Identifier: BSD-3-Clause
#include "region/StandardClipRgn.h"

#include "keldriver/VornRgn.h"
#include "region/PointBox.h"
#include "region/RgnList.h"

bool measureEvaluatedRgn(HT_ClipRgn* rgn, HT_Double_Rectangle* rect) {
    if (!rgn->next && rgn->pointCount == 4) {
        return KelDriver::IsRect(rgn->points, rect);
    }
    HT_Double_Rectangle box = boxOf(rgn->points[0]);
    for (const HT_ClipRgn* node = rgn; node; node = node->next) {
        for (int i = 0; i < vertexCount(*node); ++i) {
            growBox(box, node->points[i]);
        }
    }
    if (rect) {
        *rect = box;
    }
    return false;
}

bool KelDriver::HT_StandardClipRgn(HT_ClipRgn* rgn, HT_Double_Rectangle* rect) {
    if (!rgn || vertexCount(*rgn) == 0) {
        return false;
    }
    PolyAlgoOperator::ClipRgnOperator(rgn);
    return vertexCount(*rgn) > 0 && measureEvaluatedRgn(rgn, rect);
}
