#include "reader/HatchEdgeDecoder.h"

#include <cmath>
#include <utility>

#include "reader/GroupValue.h"
#include "reader/SplineShape.h"

namespace kelplot {

namespace {

/// The eccentric angle of the point of an ellipse that is seen from its centre at `angle`, in the same turn.
double eccentricAngle(double angle, double ratio) {
    if (ratio <= 0.0) {
        return angle;
    }
    const double withinTurn = std::atan2(std::sin(angle) / ratio, std::cos(angle));
    return angle + std::remainder(withinTurn - angle, 2 * radiansFromDegrees(180.0));
}

} // namespace

void HatchEdgeDecoder::take(const Group& group, std::vector<HatchEdge>& edges) {
    if (group.code == 72) {
        finish(edges);
        begin(toInteger(group.value));
    } else if (kind_ == Kind::spline) {
        takeOfSpline(group);
    } else if (group.code == 73) {
        counterClockwise_ = toInteger(group.value) != 0;
    } else {
        takeReal(group.code, toReal(group.value));
    }
}

void HatchEdgeDecoder::begin(int kind) {
    *this = HatchEdgeDecoder();
    const bool known = kind >= static_cast<int>(Kind::line) && kind <= static_cast<int>(Kind::spline);
    kind_ = known ? static_cast<Kind>(kind) : Kind::none;
}

void HatchEdgeDecoder::takeReal(int code, double value) {
    switch (code) {
    case 10:
        first_.x = value;
        break;
    case 20:
        first_.y = value;
        break;
    case 11:
        second_.x = value;
        break;
    case 21:
        second_.y = value;
        break;
    case 40:
        size_ = value;
        break;
    case 50:
        startDegrees_ = value;
        break;
    case 51:
        endDegrees_ = value;
        break;
    default:
        break;
    }
}

void HatchEdgeDecoder::takeOfSpline(const Group& group) {
    const double value = toReal(group.value);
    switch (group.code) {
    case 10:
        spline_.controlPoints.push_back({value, 0.0, 0.0});
        break;
    case 20:
        if (!spline_.controlPoints.empty()) {
            spline_.controlPoints.back().y = value;
        }
        break;
    case 11:
        spline_.fitPoints.push_back({value, 0.0, 0.0});
        break;
    case 21:
        if (!spline_.fitPoints.empty()) {
            spline_.fitPoints.back().y = value;
        }
        break;
    case 40:
        spline_.knots.push_back(value);
        break;
    case 42:
        spline_.weights.push_back(value);
        break;
    case 74:
        spline_.closed = toInteger(group.value) != 0;
        break;
    case 94:
        spline_.degree = toInteger(group.value);
        break;
    default:
        break;
    }
}

void HatchEdgeDecoder::finish(std::vector<HatchEdge>& edges) {
    // The angles of an edge that runs clockwise are stored as seen from below the plane.
    const double start = radiansFromDegrees(counterClockwise_ ? startDegrees_ : 360.0 - endDegrees_);
    const double end = radiansFromDegrees(counterClockwise_ ? endDegrees_ : 360.0 - startDegrees_);
    switch (std::exchange(kind_, Kind::none)) {
    case Kind::none:
        break;
    case Kind::line:
        edges.emplace_back(HatchLine{first_, second_});
        break;
    case Kind::arc:
        edges.emplace_back(HatchArc{first_, size_, start, end, counterClockwise_});
        break;
    case Kind::ellipse:
        edges.emplace_back(HatchEllipse{first_, second_, size_, eccentricAngle(start, size_),
                                        eccentricAngle(end, size_), counterClockwise_});
        break;
    case Kind::spline:
        if (completeSpline(spline_)) {
            edges.emplace_back(HatchSpline{std::move(spline_)});
        }
        break;
    }
}

} // namespace kelplot
