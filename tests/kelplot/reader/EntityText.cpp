// SPDX-License-Identifier: GPL-2.0-or-later
#include "DrawingText.h"

#include <cstdio>

namespace kelplot {
namespace {

/// The parts that a text is made of; they call one another in any order.
struct Parts {
    static std::string text(double value) {
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.9g", value);
        return digits;
    }

    static std::string text(const Vec2& p) { return text(p.x) + ',' + text(p.y); }
    static std::string text(const Vec3& p) { return text(p.x) + ',' + text(p.y) + ',' + text(p.z); }

    static std::string span(double start, double end) {
        constexpr double degree = 0.017453292519943295;
        return " from " + text(start / degree) + " to " + text(end / degree);
    }

    /// The values with a blank before each, behind a word; nothing where there are none.
    template <typename Values>
    static std::string list(const char* word, const Values& values) {
        std::string result;
        for (const auto& value : values) {
            result += (result.empty() ? word : "") + (' ' + text(value));
        }
        return result;
    }

    static std::string text(const PolylineVertex& v) {
        const bool isWide = v.startWidth != 0.0 || v.endWidth != 0.0;
        return text(v.position) + (v.bulge != 0.0 ? "^" + text(v.bulge) : "") +
               (isWide ? "w" + text(v.startWidth) + "-" + text(v.endWidth) : "");
    }

    static std::string text(const PointEntity& point) { return "point " + text(point.position); }
    static std::string text(const Line& line) { return "line " + text(line.start) + ' ' + text(line.end); }
    static std::string text(const ConstructionLine& line) {
        return (line.bothWays ? "line through " : "ray from ") + text(line.start) + " along " + text(line.direction);
    }

    static std::string text(const Circle& circle) {
        return "circle " + text(circle.center) + " r " + text(circle.radius);
    }

    static std::string text(const Arc& arc) {
        return "arc " + text(arc.center) + " r " + text(arc.radius) + span(arc.startAngle, arc.endAngle);
    }

    static std::string text(const Ellipse& ellipse) {
        return "ellipse " + text(ellipse.center) + " axis " + text(ellipse.majorAxis) + " ratio " +
               text(ellipse.ratio) + span(ellipse.startParam, ellipse.endParam);
    }

    static std::string text(const Polyline& polyline) {
        return (polyline.closed ? "closed " : "") + std::string(polyline.spatial ? "spatial " : "") +
               (polyline.continuousPattern ? "unbroken " : "") + list("polyline", polyline.vertices);
    }

    static std::string text(const Spline& spline) {
        return "spline of " + std::to_string(spline.degree) + list(", knots", spline.knots) +
               list(", weights", spline.weights) + list(", through", spline.fitPoints) +
               list(", at", spline.controlPoints);
    }

    static std::string text(const Solid& solid) { return list("solid", solid.corners); }

    static std::string text(const Face3d& face) {
        std::string edges;
        for (const bool isVisible : face.edgeVisible) {
            edges += isVisible ? '#' : '.';
        }
        return list("face", face.corners) + ' ' + edges;
    }

    static std::string text(const Insert& insert) {
        return "block " + std::to_string(insert.block) + " at " + text(insert.position) + " scaled " +
               text(insert.scale) + " turned" + span(0.0, insert.rotation).substr(10) + ", " +
               std::to_string(insert.columns) + "x" + std::to_string(insert.rows) + " by " +
               text(Vec2{insert.columnSpacing, insert.rowSpacing});
    }

    static std::string text(const HatchLine& line) { return "line " + text(line.start) + ' ' + text(line.end); }

    static std::string text(const HatchArc& arc) {
        return "arc " + text(arc.center) + " r " + text(arc.radius) + span(arc.startAngle, arc.endAngle) +
               (arc.counterClockwise ? "" : " clockwise");
    }

    static std::string text(const HatchEllipse& arc) {
        return "ellipse " + text(arc.center) + " axis " + text(arc.majorAxis) + " ratio " + text(arc.ratio) +
               span(arc.startParam, arc.endParam) + (arc.counterClockwise ? "" : " clockwise");
    }

    static std::string text(const HatchSpline& spline) { return text(spline.curve); }

    /// Of kinds whose own tests look into them.
    template <typename Other>
    static std::string text(const Other&) {
        return "other";
    }

    template <typename... Shapes>
    static std::string text(const std::variant<Shapes...>& shape) {
        return std::visit([](const auto& each) { return text(each); }, shape);
    }

    static std::string text(const HatchLoop& loop) {
        return (loop.textBox ? "\ntext box:" : "\nloop:") + list("", loop.polyline) + list("", loop.edges);
    }

    static std::string text(const Hatch& hatch) {
        constexpr const char* styles[] = {"normal", "outer", "ignore"};
        return (hatch.solid ? "solid " : "pattern ") + std::string(styles[static_cast<size_t>(hatch.style)]) +
               " hatch at " + text(hatch.elevation) + list("", hatch.loops);
    }
};

} // namespace

std::string textOf(const Entity& entity) {
    const bool isUpright = entity.extrusion == Vec3{0.0, 0.0, 1.0};
    return Parts::text(entity.geometry) + (isUpright ? "" : " extruded " + Parts::text(entity.extrusion));
}

} // namespace kelplot
