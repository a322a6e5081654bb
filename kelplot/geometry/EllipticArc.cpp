// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/EllipticArc.h"

#include "base/Angles.h"

namespace kelplot {

namespace {

constexpr double pi = turn / 2.0;

double withinTurn(double angle) {
    const double rest = std::fmod(angle, turn);
    return rest < 0.0 ? rest + turn : rest;
}

/// Adds the extreme points in one axis, where the derivative of the coordinate `u`·cos t + `v`·sin t is 0.
void addExtremes(const EllipticArc& arc, double from, double to, double u, double v, Box2& box) {
    const double extreme = std::atan2(v, u);
    const double first = extreme + std::ceil((from - extreme) / pi) * pi;
    constexpr int mostExtremes = 3; // of an arc of a full turn; half a turn is nothing to an angle that is huge
    for (int i = 0; i < mostExtremes && first + i * pi <= to; ++i) {
        box.add(arc.pointAt(first + i * pi));
    }
}

Box2 boxOfPart(const EllipticArc& arc, double from, double to) {
    Box2 box;
    box.add(arc.pointAt(from));
    box.add(arc.pointAt(to));
    addExtremes(arc, from, to, arc.u.x, arc.v.x, box);
    addExtremes(arc, from, to, arc.u.y, arc.v.y, box);
    return box;
}

/// Appends points for the part after `from`, halving it until a piece is short or outside the box of interest. The
/// chord of a piece lies in the piece's box, so that what is left out does not reach the box of interest.
void flattenPart(const EllipticArc& arc, double from, double to, double step, const Box2& interest,
                 std::vector<Vec2>& out) {
    constexpr double shortRun = 64.0;
    const double steps = std::ceil((to - from) / step);
    if (steps <= shortRun) {
        const int count = steps >= 1.0 ? static_cast<int>(steps) : 1;
        for (int i = 1; i <= count; ++i) {
            out.push_back(arc.pointAt(from + (to - from) * i / count));
        }
        return;
    }
    const double middle = from + (to - from) / 2.0;
    if (!boxOfPart(arc, from, to).intersects(interest) || !(from < middle && middle < to)) {
        out.push_back(arc.pointAt(to));
        return;
    }
    flattenPart(arc, from, middle, step, interest, out);
    flattenPart(arc, middle, to, step, interest, out);
}

} // namespace

bool EllipticArc::isWhole() const {
    return end - start >= turn - 1e-9;
}

bool EllipticArc::isFinite() const {
    return center.isFinite() && u.isFinite() && v.isFinite() && std::isfinite(start) && std::isfinite(end);
}

Box2 EllipticArc::box() const {
    return isWhole() ? hull() : boxOfPart(*this, start, end);
}

Box2 EllipticArc::hull() const {
    const Vec2 reach{std::hypot(u.x, v.x), std::hypot(u.y, v.y)};
    return {center - reach, center + reach};
}

double EllipticArc::majorRadius() const {
    const double sum = dot(u, u) + dot(v, v);
    const double difference = std::hypot(dot(u, u) - dot(v, v), 2.0 * dot(u, v));
    return std::sqrt((sum + difference) / 2.0);
}

void EllipticArc::flatten(const Flattening& rules, std::vector<Vec2>& out) const {
    // A chord over the angle h leaves a circle by r·(1 - cos(h/2)) = 2·r·sin²(h/4).
    const double ratio = std::min(1.0, rules.tolerance / (2.0 * majorRadius()));
    const double step = std::min(pi / 4.0, 4.0 * std::asin(std::sqrt(ratio)));
    out.push_back(pointAt(start));
    flattenPart(*this, start, end, step, rules.interest, out);
}

PageArc pageArcOf(const EllipticArc& arc) {
    constexpr double roundness = 1e-9;
    const double uu = dot(arc.u, arc.u);
    const double vv = dot(arc.v, arc.v);
    const double uv = dot(arc.u, arc.v);
    const bool circle = std::hypot(uu - vv, 2.0 * uv) <= roundness * (uu + vv);
    const bool counterClockwise = cross(arc.u, arc.v) <= 0.0; // as seen, since y points down

    // The parameter at which the arc passes the end of its major axis; a circle gets the one that lies on
    // the page's x axis, so that it needs no rotation.
    const double uAngle = std::atan2(-arc.u.y, arc.u.x);
    const double axisAt = circle ? (counterClockwise ? -uAngle : uAngle) : 0.5 * std::atan2(2.0 * uv, uu - vv);
    const Vec2 major = arc.u * std::cos(axisAt) + arc.v * std::sin(axisAt);
    const Vec2 minor = arc.v * std::cos(axisAt) - arc.u * std::sin(axisAt);

    PageArc page;
    page.center = arc.center;
    page.majorRadius = major.length();
    page.minorRadius = circle ? page.majorRadius : minor.length();
    page.rotation = circle ? 0.0 : std::atan2(-major.y, major.x);
    page.start = withinTurn(counterClockwise ? arc.start - axisAt : axisAt - arc.end);
    page.end = page.start + (arc.end - arc.start);
    return page;
}

double endWithinTurn(double start, double end) {
    constexpr double sameAngle = 1e-12;
    constexpr double written = 1e-5; // programs write the full turn with as few as six digits
    const double given = end - start;
    if (given > sameAngle && given < written) {
        return end;
    }
    const double span = withinTurn(given);
    return start + (span > written && span < turn - written ? span : turn);
}

EllipticArc bulgeArc(Vec2 from, Vec2 to, double bulge) {
    const Vec2 chord = to - from;
    EllipticArc arc;
    arc.center = from + chord * 0.5 + leftNormal(chord) * ((1.0 - bulge * bulge) / (4.0 * bulge));
    arc.u = from - arc.center;
    arc.v = leftNormal(arc.u) * (bulge > 0.0 ? 1.0 : -1.0);
    arc.end = 4.0 * std::atan(std::abs(bulge));
    return arc;
}

EllipticArc mapArc(const EllipticArc& arc, double elevation, const PlanMap& map) {
    return {map.mapPoint({arc.center.x, arc.center.y, elevation}), map.mapDirection(arc.u), map.mapDirection(arc.v),
            arc.start, arc.end};
}

} // namespace kelplot
