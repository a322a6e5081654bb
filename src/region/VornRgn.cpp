// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/VornRgn.h"

#include <algorithm>

#include "region/RgnList.h"

using namespace KelDriver::Internal;

namespace {

/// Gives a fresh region a list, evaluates it and sets box and kind.
void adopt(CVornRgn& rgn, HT_ClipRgn* list) {
    rgn.m_pClipRgn = list;
    if (!list) {
        rgn.m_nType = rgnKind::empty;
        return;
    }
    const bool isRect = KelDriver::HT_StandardClipRgn(list, &rgn.m_rcBox);
    rgn.m_nType = isRect ? rgnKind::rectangle : rgnKind::general;
}

} // namespace

CVornRgn::CVornRgn() = default;

CVornRgn::CVornRgn(const HT_ClipRgn* rgn) : CVornRgn() {
    adopt(*this, KelDriver::HT_CloneRgnData(rgn));
}

CVornRgn::CVornRgn(const CVornRgn& src) : CVornRgn() {
    CopyFrom(src);
}

// CopyFrom leaves a region that is its own source alone. NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
CVornRgn& CVornRgn::operator=(const CVornRgn& src) {
    CopyFrom(src);
    return *this;
}

CVornRgn::~CVornRgn() {
    DeleteObject();
}

int CVornRgn::CopyFrom(const CVornRgn& src) {
    if (this == &src) {
        return 1;
    }
    HT_ClipRgn* const clone = KelDriver::HT_CloneRgnData(src.m_pClipRgn);
    DeleteObject();
    m_pClipRgn = clone;
    m_nType = src.m_nType;
    m_rcBox = src.m_rcBox;
    return 1;
}

int CVornRgn::DeleteObject() {
    KelDriver::HT_DeleteRgn(m_pClipRgn);
    m_pClipRgn = nullptr;
    m_nType = rgnKind::none;
    m_rcBox = {};
    return 1;
}

int CVornRgn::CreateRectRgn(double x1, double y1, double x2, double y2) {
    DeleteObject();
    m_nType = rgnKind::rectangle;
    m_rcBox = {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
    return 1;
}

int CVornRgn::CreatePolygonRgn(const HT_Double_Point* pts, int n, int /*fillMode*/) {
    HT_ClipRgn* const list = KelDriver::HT_CreatePolygonRgnData(pts, n); // first: `pts` may be this region's own
    DeleteObject();
    adopt(*this, list);
    return 1;
}

HT_ClipRgn* CVornRgn::CreateRectClipRgn(const HT_Double_Rectangle& r) {
    return KelDriver::HT_CreateRectRgnData({r.minX, r.minY}, {r.maxX, r.maxY});
}

int CVornRgn::GetRgnBox(HT_Double_Rectangle* r) const {
    if (r) {
        *r = m_rcBox;
    }
    return rgnKind::toWin32(m_nType);
}

HT_ClipRgn* CVornRgn::GetClipRgnRef() {
    if (m_pClipRgn || m_nType < rgnKind::rectangle || m_nType > rgnKind::empty) {
        return m_pClipRgn;
    }
    if (m_nType == rgnKind::empty) {
        m_rcBox = {};
    }
    m_pClipRgn = CreateRectClipRgn(m_rcBox);
    return m_pClipRgn;
}

int CVornRgn::Divided(HT_ClipRgn** /*rgn*/) {
    return 1;
}
