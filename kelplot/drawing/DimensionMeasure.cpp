// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DimensionMeasure.h"

#include <algorithm>
#include <cmath>

#include "base/Angles.h"
#include "geometry/Direction.h"

namespace kelplot {

namespace {

/// Of the sine of the angle between two lines; below it they count as parallel.
constexpr double leastSlant = 1e-9;

/// `angle` brought into a turn from `start` on.
double from(double start, double angle) {
    const double rest = std::fmod(angle - start, turn);
    return rest < 0.0 ? rest + turn : rest;
}

std::optional<Vec2> crossing(Vec2 a, Vec2 alongA, Vec2 b, Vec2 alongB) {
    const double slant = cross(alongA, alongB);
    if (!(std::abs(slant) > leastSlant * alongA.length() * alongB.length())) {
        return std::nullopt;
    }
    return a + alongA * (cross(b - a, alongB) / slant);
}

/// One of the two lines between which an angle is measured.
struct Arm {
    Vec2 from;
    Vec2 to;
    double direction; ///< of the ray from the centre along it on which the arc ends
};

/// The end of the arm that an extension line comes from; nothing where the arc ends between the two.
std::optional<Vec2> armEnd(const Arm& arm, Vec2 centre, double radius) {
    const Vec2 ray = unitVector(arm.direction);
    const double one = dot(arm.from - centre, ray);
    const double other = dot(arm.to - centre, ray);
    if (std::min(one, other) <= radius && radius <= std::max(one, other)) {
        return std::nullopt;
    }
    return std::abs(one - radius) < std::abs(other - radius) ? arm.from : arm.to;
}

/// Of the four angles between two lines, that with the stated point of its arc.
std::optional<AngleMeasure> angleOfLines(const Dimension& dimension) {
    const Vec2 alongFirst = dimension.second - dimension.first;
    const Vec2 alongOther = dimension.line - dimension.side;
    const auto centre = crossing(dimension.first, alongFirst, dimension.side, alongOther);
    if (!centre) {
        return std::nullopt;
    }
    const Vec2 out = dimension.arc - *centre;
    const double through = angleOf(out);
    std::array<Arm, 4> arms;
    for (size_t i = 0; i < arms.size(); ++i) {
        const bool isFirst = i < 2;
        const double opposite = i % 2 == 0 ? 0.0 : turn / 2.0;
        arms[i] = {isFirst ? dimension.first : dimension.side, isFirst ? dimension.second : dimension.line,
                   angleOf(isFirst ? alongFirst : alongOther) + opposite};
    }
    const auto before = [&](const Arm& a, const Arm& b) {
        return from(a.direction, through) < from(b.direction, through);
    };
    const auto after = [&](const Arm& a, const Arm& b) {
        return from(through, a.direction) < from(through, b.direction);
    };
    const Arm& start = *std::min_element(arms.begin(), arms.end(), before);
    const Arm& end = *std::min_element(arms.begin(), arms.end(), after);
    AngleMeasure measure{*centre, out.length(), start.direction, from(start.direction, end.direction), {}};
    measure.arms = {armEnd(start, measure.centre, measure.radius), armEnd(end, measure.centre, measure.radius)};
    return measure;
}

std::optional<AngleMeasure> angleOfPoints(const Dimension& dimension) {
    const Vec2 centre = dimension.side;
    const double first = angleOf(dimension.first - centre);
    const double second = angleOf(dimension.second - centre);
    const double through = angleOf(dimension.line - centre);
    AngleMeasure measure{centre, (dimension.line - centre).length(), first, from(first, second), {}};
    measure.arms = {dimension.first, dimension.second};
    if (from(first, through) > measure.sweep) {
        measure.start = second;
        measure.sweep = turn - measure.sweep;
        std::swap(measure.arms[0], measure.arms[1]);
    }
    return measure;
}

} // namespace

LinearMeasure linearMeasureOf(const Dimension& dimension) {
    const Vec2 between = dimension.second - dimension.first;
    const bool isAligned = dimension.kind == Dimension::Kind::aligned && between.length() > 0.0;
    const double direction = isAligned ? angleOf(between) : dimension.direction;
    LinearMeasure measure;
    measure.along = unitVector(direction);
    measure.extension = leftNormal(measure.along);
    if (std::abs(std::sin(dimension.oblique)) > leastSlant) {
        measure.extension = unitVector(direction + dimension.oblique);
    }
    const Vec2 normal = leftNormal(measure.along);
    const auto endFor = [&](Vec2 measured) {
        const double distance = dot(dimension.line - measured, normal) / dot(measure.extension, normal);
        return measured + measure.extension * distance;
    };
    measure.ends = {endFor(dimension.first), endFor(dimension.second)};
    const double length = dot(measure.ends[1] - measure.ends[0], measure.along);
    measure.along = measure.along * (length < 0.0 ? -1.0 : 1.0);
    measure.length = std::abs(length);
    return measure;
}

std::optional<AngleMeasure> angleMeasureOf(const Dimension& dimension) {
    const auto measure =
        dimension.kind == Dimension::Kind::angleOfLines ? angleOfLines(dimension) : angleOfPoints(dimension);
    return measure && measure->radius > 0.0 ? measure : std::nullopt;
}

Box2 boxOfPoints(const Dimension& dimension) {
    using Kind = Dimension::Kind;
    Box2 box;
    const bool isOfCircle = dimension.kind == Kind::radius || dimension.kind == Kind::diameter;
    if (dimension.kind != Kind::ordinate) {
        box.add(dimension.line);
    }
    if (!isOfCircle) {
        box.add(dimension.first);
        box.add(dimension.second);
    }
    if (isOfCircle || isAngle(dimension.kind)) {
        box.add(dimension.side);
    }
    if (dimension.text && dimension.textPlaced) {
        box.add(Vec2{dimension.text->position.x, dimension.text->position.y});
    }
    return box;
}

double measureOf(const Dimension& dimension) {
    using Kind = Dimension::Kind;
    switch (dimension.kind) {
    case Kind::rotated:
    case Kind::aligned:
        return linearMeasureOf(dimension).length;
    case Kind::radius:
    case Kind::diameter:
        return (dimension.side - dimension.line).length();
    case Kind::angleOfLines:
    case Kind::angleOfPoints: {
        const auto angle = angleMeasureOf(dimension);
        return angle ? angle->sweep : 0.0;
    }
    case Kind::ordinate: {
        const Vec2 axis = unitVector(dimension.level);
        const Vec2 distance = dimension.first - dimension.line;
        return std::abs(dot(distance, dimension.ordinateOfX ? axis : leftNormal(axis)));
    }
    case Kind::other:
        break;
    }
    return 0.0;
}

} // namespace kelplot
