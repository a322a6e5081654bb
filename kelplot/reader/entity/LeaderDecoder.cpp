// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/LeaderDecoder.h"
#include "geometry/PlanMap.h"
#include "reader/RecordDecoder.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>
#include <utility>

#include "reader/AttachedData.h"
#include "reader/GroupValue.h"
#include "reader/entity/SplineDecoder.h"

namespace kelplot {

namespace {

/// Many more values than a style has.
constexpr size_t mostChanges = 256;

/// An arrow head that takes more than this share of the leader's first stretch is left out.
constexpr double largestArrowShare = 0.5;
/// Of the usual arrow head: half its width to its length.
constexpr double arrowSlope = 1.0 / 6.0;

/// Arrow heads through which the line goes on to its end.
bool lineReachesTip(const std::string& arrowBlock) {
    constexpr const char* names[] = {"_ArchTick", "_Oblique", "_None", "_Small", "_DotSmall", "_Integral"};
    return std::any_of(std::begin(names), std::end(names),
                       [&](const char* name) { return qstricmp(arrowBlock.c_str(), name) == 0; });
}

} // namespace

void LeaderDecoder::begin(std::string_view) {
    m_record = Record();
    m_changes.clear();
    m_inChanges = false;
    m_changedCode.reset();
}

void LeaderDecoder::take(const Group& group) {
    switch (group.code) {
    case 3:
        m_record.style = trimmed(group.value);
        break;
    case 10:
        m_record.vertices.push_back({toReal(group.value), 0.0, 0.0});
        break;
    case 20:
    case 30:
        if (!m_record.vertices.empty()) {
            takePoint(group, 10, m_record.vertices.back());
        }
        break;
    case 41:
        m_record.textWidth = std::max(0.0, toReal(group.value));
        break;
    case 71:
        m_record.arrow = toInteger(group.value) != 0;
        break;
    case 72:
        m_record.curved = toInteger(group.value) != 0;
        break;
    case 73:
        m_record.hasText = toInteger(group.value) == 0;
        break;
    case 75:
        m_record.hasHook = toInteger(group.value) != 0;
        break;
    default:
        break;
    }
}

/// The values that differ from the style are pairs: the code that each has in the table, and itself.
void LeaderDecoder::takeExtended(const Group& group) {
    const std::string_view value = trimmed(group.value);
    if (group.code == attached::application || (group.code == attached::brace && value == "}")) {
        m_inChanges = false;
    } else if (group.code == attached::text && value == "DSTYLE") {
        m_inChanges = true;
        m_changedCode.reset();
    } else if (m_inChanges && m_changedCode && group.code >= attached::firstOther) {
        if (m_changes.size() < mostChanges) {
            m_changes.push_back({*m_changedCode, std::string(value)});
        }
        m_changedCode.reset();
    } else if (m_inChanges && group.code == attached::shortInteger) {
        m_changedCode = toInteger(value);
    }
}

LeaderStyle LeaderDecoder::style(const TextEncoding& decoder) const {
    LeaderStyle style = m_styles.styleOf(m_record.style, decoder);
    for (const Change& change : m_changes) {
        style.take(Group{change.code, change.value});
    }
    return style;
}

/// A text above the line has the line below it.
void LeaderDecoder::extendUnderText(const LeaderStyle& style) {
    std::vector<Vec3>& vertices = m_record.vertices;
    if (!m_record.hasText || !m_record.hasHook || style.textRow == 0) {
        return;
    }
    const Vec3 hook = vertices.back() - vertices[vertices.size() - 2];
    if (hook.length() > 0.0) {
        vertices.push_back(vertices.back() + hook * (m_record.textWidth / hook.length()));
    }
}

void LeaderDecoder::addArrow(const LeaderStyle& style, const RecordHeader& header, DrawingBuilder& builder) {
    const double size = style.scaledArrowSize();
    const Vec3 first = m_record.vertices[1] - m_record.vertices[0];
    if (!m_record.arrow || !(size > 0.0) || size > first.length() * largestArrowShare) {
        return;
    }
    const Vec3 tip = toPlane(m_record.vertices[0], header.extrusion);
    const Vec3 back = toPlane(first, header.extrusion) * (size / first.length());
    const std::string block = m_blocks.nameOf(style.arrowBlock);
    if (block.empty()) {
        const Vec3 across = Vec3{-back.y, back.x, 0.0} * arrowSlope;
        const Vec3 base = tip + back;
        builder.add(header, Solid{{tip, base + across, base - across, base - across}});
    } else {
        Insert arrow;
        arrow.block = builder.block(block);
        arrow.position = tip;
        arrow.scale = {size, size, size};
        const Vec3 forward = Vec3() - back;
        arrow.rotation = std::atan2(forward.y, forward.x);
        builder.add(header, arrow);
    }
    if (!m_record.curved && !lineReachesTip(block)) {
        m_record.vertices[0] = m_record.vertices[0] + first * (size / first.length());
    }
}

void LeaderDecoder::addPath(const RecordHeader& header, DrawingBuilder& builder) {
    if (m_record.curved) {
        Spline spline;
        spline.fitPoints = std::move(m_record.vertices);
        if (completeSpline(spline)) {
            builder.addInWorld(header, std::move(spline));
        }
        return;
    }
    Polyline path;
    path.spatial = true;
    for (const Vec3& vertex : m_record.vertices) {
        path.vertices.push_back(PolylineVertex{vertex});
    }
    builder.addInWorld(header, std::move(path));
}

void LeaderDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (m_record.vertices.size() < 2) {
        return;
    }
    const LeaderStyle leaderStyle = style(builder.decoder());
    extendUnderText(leaderStyle);
    addArrow(leaderStyle, header, builder);
    addPath(header, builder);
}

} // namespace kelplot
