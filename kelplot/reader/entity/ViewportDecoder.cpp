// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/ViewportDecoder.h"

#include <algorithm>

#include "base/Angles.h"
#include "reader/AttachedData.h"

namespace kelplot {

namespace {

constexpr int sheetNumber = 1;

// Bits of code 90.
constexpr int perspectiveView = 0x1;
constexpr int clippedView = 0x10000;
constexpr int switchedOff = 0x20000;

} // namespace

void ViewportDecoder::begin(std::string_view) {
    m_viewport = Viewport();
    m_number = 0;
    m_usesClip = false;
    m_clipHandle = 0;
    m_frozenLayers.clear();
    m_frozenNames.clear();
    m_inView = false;
    m_points = 0;
    m_reals = 0;
    m_integers = 0;
}

void ViewportDecoder::take(const Group& group) {
    if (takePoint(group, 10, m_viewport.center) || takeOfView(group)) {
        return;
    }
    switch (group.code) {
    case 40:
        m_viewport.width = toReal(group.value);
        break;
    case 41:
        m_viewport.height = toReal(group.value);
        break;
    case 68:
        m_viewport.on = m_viewport.on && toInteger(group.value) != 0;
        m_viewport.stackNumber = std::max(0, toInteger(group.value));
        break;
    case 69:
        m_number = toInteger(group.value);
        break;
    case 90: {
        const int flags = toInteger(group.value);
        m_viewport.on = m_viewport.on && (flags & switchedOff) == 0;
        m_viewport.perspective = (flags & perspectiveView) != 0;
        m_usesClip = (flags & clippedView) != 0;
        break;
    }
    case 331:
    case 341:
        m_frozenLayers.push_back(toHandle(group.value));
        break;
    case 340:
        m_clipHandle = toHandle(group.value);
        break;
    default:
        break;
    }
}

/// Takes what tells the part of model space that shows.
bool ViewportDecoder::takeOfView(const Group& group) {
    if (takePoint(group, 16, m_viewport.viewDirection) || takePoint(group, 17, m_viewport.viewTarget)) {
        return true;
    }
    switch (group.code) {
    case 12:
        m_viewport.viewCenter.x = toReal(group.value);
        return true;
    case 22:
        m_viewport.viewCenter.y = toReal(group.value);
        return true;
    case 45:
        m_viewport.viewHeight = toReal(group.value);
        return true;
    case 51:
        m_viewport.twist = radiansFromDegrees(toReal(group.value));
        return true;
    default:
        return false;
    }
}

/// The target and the direction, four numbers, and the way of looking, each in its place.
void ViewportDecoder::takeExtended(const Group& group) {
    if (group.code == attached::text) {
        m_inView = trimmed(group.value) == "MVIEW";
    }
    if (!m_inView) {
        return;
    }
    Vec3& point = m_points < 2 ? m_viewport.viewTarget : m_viewport.viewDirection;
    switch (group.code) {
    case attached::layer:
        m_frozenNames.emplace_back(trimmed(group.value));
        break;
    case attached::point:
        ++m_points;
        (m_points < 2 ? m_viewport.viewTarget : m_viewport.viewDirection).x = toReal(group.value);
        break;
    case attached::point + 10:
        point.y = toReal(group.value);
        break;
    case attached::point + 20:
        point.z = toReal(group.value);
        break;
    case attached::real:
        takeExtendedReal(toReal(group.value));
        break;
    case attached::shortInteger: {
        constexpr int viewMode = 2; // the first states the version of these data
        ++m_integers;
        m_viewport.perspective =
            m_integers == viewMode ? (toInteger(group.value) & perspectiveView) != 0 : m_viewport.perspective;
        break;
    }
    default:
        break;
    }
}

void ViewportDecoder::takeExtendedReal(double value) {
    ++m_reals;
    switch (m_reals) {
    case 1:
        m_viewport.twist = radiansFromDegrees(value);
        break;
    case 2:
        m_viewport.viewHeight = value;
        break;
    case 3:
        m_viewport.viewCenter.x = value;
        break;
    case 4:
        m_viewport.viewCenter.y = value;
        break;
    default:
        break;
    }
}

void ViewportDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    const bool hasArea = m_viewport.width > 0.0 && m_viewport.height > 0.0;
    if (m_number == sheetNumber || !hasArea) {
        return;
    }
    for (const uint64_t handle : m_frozenLayers) {
        if (const auto layer = builder.handles().layer(handle)) {
            m_viewport.frozenLayers.push_back(*layer);
        }
    }
    for (const std::string& name : m_frozenNames) {
        m_viewport.frozenLayers.push_back(builder.layer(name));
    }
    builder.addViewport(header, std::move(m_viewport), m_usesClip ? m_clipHandle : 0);
}

} // namespace kelplot
