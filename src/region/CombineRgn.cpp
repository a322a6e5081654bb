// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>

#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "region/RgnList.h"

using namespace KelDriver::Internal;

namespace {

enum Win32Operation { win32And = 1, win32Or = 2, win32Xor = 3, win32Diff = 4, win32Copy = 5 };

bool isEmpty(const CVornRgn& rgn) {
    return rgn.m_nType == rgnKind::empty;
}

int becomeEmpty(CVornRgn& self) {
    self.DeleteObject();
    self.m_nType = rgnKind::empty;
    return rgnKind::win32Empty;
}

/// Brings the list along, whatever the kind.
int becomeCopy(CVornRgn& self, const CVornRgn& source) {
    self.CopyFrom(source);
    return rgnKind::toWin32(self.m_nType);
}

HT_Double_Rectangle intersection(const HT_Double_Rectangle& a, const HT_Double_Rectangle& b) {
    return {std::max(a.minX, b.minX), std::max(a.minY, b.minY), std::min(a.maxX, b.maxX), std::min(a.maxY, b.maxY)};
}

bool overlap(const CVornRgn& a, const CVornRgn& b) {
    const HT_Double_Rectangle common = intersection(a.m_rcBox, b.m_rcBox);
    return common.minX < common.maxX && common.minY < common.maxY;
}

void ensureList(CVornRgn& rgn) {
    if (!rgn.m_pClipRgn) {
        rgn.m_pClipRgn = CVornRgn::CreateRectClipRgn(rgn.m_rcBox);
    }
}

void replaceList(CVornRgn& rgn, HT_ClipRgn* list) {
    KelDriver::HT_DeleteRgn(rgn.m_pClipRgn);
    rgn.m_pClipRgn = list;
}

int clip(CVornRgn& self, CVornRgn& a, CVornRgn& b, gpc_op op) {
    ensureList(a);
    ensureList(b);
    const GpcPolygonPtr subject(PolyAlgoOperator::convert_2_gpc_polygon(a.m_pClipRgn));
    const GpcPolygonPtr other(PolyAlgoOperator::convert_2_gpc_polygon(b.m_pClipRgn));
    const GpcPolygonPtr result = combine(op, subject, other);
    RgnListPtr list(PolyAlgoOperator::convert_2_Clip_Rgn(result.get()));
    if (!list) {
        return becomeEmpty(self);
    }
    const bool isRect = KelDriver::HT_StandardClipRgn(list.get(), &self.m_rcBox);
    replaceList(self, list.release());
    self.m_nType = isRect ? rgnKind::rectangle : rgnKind::general;
    return rgnKind::toWin32(self.m_nType);
}

/// Lengthens a's own list by b's contours and gives `self`, unless it is `a`, no list; both are part of the interface.
int append(CVornRgn& self, CVornRgn& a, CVornRgn& b) {
    ensureList(a);
    ensureList(b);
    HT_ClipRgn* const clone = KelDriver::HT_CloneRgnData(b.m_pClipRgn); // before the release: b may be self
    clone->mode = HT_RGN_OR;
    HT_Double_Rectangle box = a.m_rcBox;
    UnionRectangle(box, b.m_rcBox);
    HT_ClipRgn* last = a.m_pClipRgn;
    while (last->next) {
        last = last->next;
    }
    last->next = clone;
    if (&self != &a) {
        replaceList(self, nullptr);
    }
    self.m_nType = rgnKind::general;
    self.m_rcBox = box;
    return rgnKind::win32General;
}

int intersect(CVornRgn& self, CVornRgn& a, CVornRgn& b) {
    if (isEmpty(a) || isEmpty(b) || !overlap(a, b)) {
        return becomeEmpty(self);
    }
    if (a.m_nType == rgnKind::rectangle && b.m_nType == rgnKind::rectangle) {
        const HT_Double_Rectangle box = intersection(a.m_rcBox, b.m_rcBox);
        self.CreateRectRgn(box.minX, box.minY, box.maxX, box.maxY);
        return rgnKind::win32Rectangle;
    }
    return clip(self, a, b, GPC_INT);
}

int join(CVornRgn& self, CVornRgn& a, CVornRgn& b, gpc_op op) {
    if (isEmpty(a)) {
        return becomeCopy(self, b);
    }
    if (isEmpty(b)) {
        return becomeCopy(self, a);
    }
    return overlap(a, b) ? clip(self, a, b, op) : append(self, a, b);
}

int subtract(CVornRgn& self, CVornRgn& a, CVornRgn& b) {
    if (isEmpty(a)) {
        return becomeEmpty(self);
    }
    if (isEmpty(b) || !overlap(a, b)) {
        return becomeCopy(self, a);
    }
    return clip(self, a, b, GPC_DIFF);
}

} // namespace

int CVornRgn::CombineRgn(CVornRgn* a, CVornRgn* b, int op) {
    if (op < win32And || op > win32Copy) {
        return rgnKind::toWin32(m_nType);
    }
    CVornRgn nothing;
    nothing.m_nType = rgnKind::empty;
    CVornRgn& left = a ? *a : nothing;
    CVornRgn& right = b ? *b : nothing;
    if (op != win32Copy && this != a && this != b) {
        DeleteObject();
    }
    switch (op) {
    case win32And:
        return intersect(*this, left, right);
    case win32Or:
        return join(*this, left, right, GPC_UNION);
    case win32Xor:
        return join(*this, left, right, GPC_XOR);
    case win32Diff:
        return subtract(*this, left, right);
    default: // copies b, not a: a contour that replaces what came before is the second operand
        return becomeCopy(*this, right);
    }
}
