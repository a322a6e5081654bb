// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/ClosedLoop.h"

#include "base/Angles.h"
#include "geometry/PlanMap.h"

namespace kelplot {

std::optional<HatchLoop> closedLoopOf(const Entity& entity) {
    const Geometry& geometry = entity.geometry;
    const Frame3 plane = frameOfPlane(entity.extrusion);
    HatchLoop loop;
    if (const auto* const polyline = std::get_if<Polyline>(&geometry)) {
        for (PolylineVertex vertex : polyline->vertices) {
            vertex.position = plane.mapPoint(vertex.position);
            vertex.bulge *= plane.z.z < 0.0 ? -1.0 : 1.0;
            loop.polyline.push_back(vertex);
        }
    } else if (const auto* const circle = std::get_if<Circle>(&geometry)) {
        const Vec3 center = plane.mapPoint(circle->center);
        loop.edges.emplace_back(HatchArc{{center.x, center.y}, circle->radius, 0.0, turn, true});
    } else if (const auto* const ellipse = std::get_if<Ellipse>(&geometry)) {
        loop.edges.emplace_back(HatchEllipse{{ellipse->center.x, ellipse->center.y},
                                             {ellipse->majorAxis.x, ellipse->majorAxis.y},
                                             ellipse->ratio,
                                             ellipse->startParam,
                                             ellipse->endParam,
                                             true});
    } else if (const auto* const spline = std::get_if<Spline>(&geometry)) {
        loop.edges.emplace_back(HatchSpline{*spline});
    } else {
        return std::nullopt;
    }
    return loop;
}

} // namespace kelplot
