// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/proxy/ProxyCanvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Angles.h"
#include "geometry/PlanMap.h"

namespace kelplot {

namespace {

constexpr int bottomLeft = 7; ///< where a text hangs on its position
constexpr size_t mostMaps = 100;
constexpr Vec3 level{0.0, 0.0, 1.0};

double dotOf(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// A filled area of any number of corners, as it looks from above.
Geometry areaOf(const std::vector<Vec3>& corners) {
    if (corners.size() <= 4) {
        return Solid{{corners[0], corners[1], corners[2], corners.back()}};
    }
    Hatch hatch;
    hatch.solid = true;
    hatch.elevation = corners.front().z;
    HatchLoop& loop = hatch.loops.emplace_back();
    for (const Vec3& corner : corners) {
        loop.polyline.push_back(PolylineVertex{{corner.x, corner.y, 0.0}});
    }
    return hatch;
}

} // namespace

/// The maps of shapes in shapes apply one after the other.
void ProxyCanvas::pushMap(const ProxyMap& own) {
    if (m_maps.size() >= mostMaps) {
        return;
    }
    const Vec3 x = mappedDirection({own[0], own[4], own[8]});
    const Vec3 y = mappedDirection({own[1], own[5], own[9]});
    const Vec3 z = mappedDirection({own[2], own[6], own[10]});
    const Vec3 origin = mapped({own[3], own[7], own[11]});
    m_maps.push_back({x.x, y.x, z.x, origin.x, x.y, y.y, z.y, origin.y, x.z, y.z, z.z, origin.z});
}

void ProxyCanvas::popMap() {
    if (!m_maps.empty()) {
        m_maps.pop_back();
    }
}

Vec3 ProxyCanvas::mappedDirection(const Vec3& v) const {
    if (m_maps.empty()) {
        return v;
    }
    const ProxyMap& m = m_maps.back();
    return {dotOf({m[0], m[1], m[2]}, v), dotOf({m[4], m[5], m[6]}, v), dotOf({m[8], m[9], m[10]}, v)};
}

Vec3 ProxyCanvas::mapped(const Vec3& p) const {
    return m_maps.empty() ? p : mappedDirection(p) + Vec3{m_maps.back()[3], m_maps.back()[7], m_maps.back()[11]};
}

void ProxyCanvas::add(Geometry&& geometry, const Vec3& extrusion) {
    m_look.extrusion = extrusion;
    m_builder.add(m_look, std::move(geometry));
    m_hasDrawn = true;
}

void ProxyCanvas::addPath(const std::vector<Vec3>& points, bool closed) {
    if (points.size() < 2) {
        return;
    }
    Polyline path;
    path.spatial = true;
    path.closed = closed;
    for (const Vec3& point : points) {
        path.vertices.push_back(PolylineVertex{point});
    }
    add(std::move(path), level);
}

/// @param start  from the centre
void ProxyCanvas::addArc(const Vec3& centre, const Vec3& normal, const Vec3& start, double sweep) {
    const double radius = start.length();
    if (!(radius > 0.0)) {
        return;
    }
    const bool isWhole = std::abs(sweep) >= turn;
    if (m_maps.empty()) {
        const Vec3 inPlane = toPlane(start, normal);
        const double angle = std::atan2(inPlane.y, inPlane.x);
        const Vec3 middle = toPlane(centre, normal);
        if (isWhole) {
            add(Circle{middle, radius}, normal);
        } else {
            add(Arc{middle, radius, std::min(angle, angle + sweep), std::max(angle, angle + sweep)}, normal);
        }
        return;
    }
    constexpr int stepsOfTurn = 128;
    const Vec3 across = cross(frameOfPlane(normal).z, start);
    const int steps = std::max(2, static_cast<int>(std::min(std::abs(sweep) / turn, 1.0) * stepsOfTurn));
    std::vector<Vec3> path;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (isWhole ? turn : sweep) * i / steps;
        path.push_back(mapped(centre + start * std::cos(angle) + across * std::sin(angle)));
    }
    addPath(path, false);
}

/// A circle through three points, or an arc from the first of them to the last.
void ProxyCanvas::addArcThrough(const Vec3& first, const Vec3& second, const Vec3& third, bool whole) {
    const Vec3 a = second - first;
    const Vec3 b = third - first;
    const Vec3 normal = cross(a, b);
    const double square = dotOf(normal, normal);
    if (!(square > 0.0)) {
        return;
    }
    const Vec3 toCentre = (cross(normal, a) * dotOf(b, b) + cross(b, normal) * dotOf(a, a)) * (0.5 / square);
    const Vec3 centre = first + toCentre;
    const Vec3 start = first - centre;
    const Vec3 end = third - centre;
    const Vec3 up = normal * (1.0 / std::sqrt(square));
    const double angle = std::atan2(dotOf(cross(start, end), up), dotOf(start, end));
    addArc(centre, normal, start, whole ? turn : (angle > 0.0 ? angle : angle + turn));
}

void ProxyCanvas::addText(const ProxyText& item) {
    const Vec3 direction = mappedDirection(item.direction);
    const double scale = item.direction.length() > 0.0 ? direction.length() / item.direction.length() : 0.0;
    if (item.text.empty() || !(item.height * scale > 0.0)) {
        return;
    }
    MText text;
    text.height = item.height * scale;
    text.attachment = bottomLeft;
    text.position = toPlane(mapped(item.position), item.normal);
    const Vec3 along = toPlane(direction, item.normal);
    text.rotation = std::atan2(along.y, along.x);
    CharacterFormat format;
    format.height = text.height;
    format.widthFactor = item.widthFactor > 0.0 ? item.widthFactor : 1.0;
    format.obliqueAngle = item.obliqueAngle;
    if (!item.font.name.empty()) {
        format.font = item.font;
    }
    Paragraph& paragraph = text.paragraphs.emplace_back();
    paragraph.format = format;
    paragraph.pieces.emplace_back(TextSpan{item.text, format});
    add(std::move(text), item.normal);
}

void ProxyCanvas::addArea(const std::vector<Vec3>& corners) {
    add(areaOf(corners), level);
}

void ProxyCanvas::addMesh(Mesh&& mesh) {
    add(std::move(mesh), level);
}

void ProxyCanvas::addConstructionLine(const Vec3& start, const Vec3& through, bool bothWays) {
    add(ConstructionLine{start, through - start, bothWays}, level);
}

} // namespace kelplot
