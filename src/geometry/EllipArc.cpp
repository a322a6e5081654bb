// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/EllipArc.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>

#include "geometry/Numeric.h"

using namespace KelDriver::Internal;

namespace {

int32_t wrappedSum(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

int32_t wrappedDifference(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

// Finite values saturate; infinities and NaN stay what they are.
float narrowed(double value) {
    if (!std::isfinite(value)) {
        return static_cast<float>(value);
    }
    return static_cast<float>(std::clamp(value, -static_cast<double>(FLT_MAX), static_cast<double>(FLT_MAX)));
}

HT_Double_Point mirroredPoint(const HT_EllipArc& arc, double t) {
    const double cosR = std::cos(arc.rotation);
    const double sinR = std::sin(arc.rotation);
    const double u = arc.radiusX * std::cos(t);
    const double v = arc.radiusY * std::sin(t);
    return {arc.center.x + (u * cosR - v * sinR), arc.center.y - (u * sinR + v * cosR)};
}

// Whole turns in an angle that is at least half a turn, to the nearest.
double nearestTurns(double angle) {
    const double turns = angle / fullTurn;
    const double whole = std::floor(turns);
    return turns - whole >= 0.5 ? whole + 1.0 : whole;
}

} // namespace

HT_EllipArc::HT_EllipArc(const HT_Double_Point& arcCenter, double semiAxisX, double semiAxisY, double rotationAngle,
                         double startAngle, double endAngle)
    : center(arcCenter), radiusX(semiAxisX), radiusY(semiAxisY), rotation(rotationAngle), startParam(startAngle),
      endParam(endAngle) {
}

void HT_EllipArc::calcEllipicArcParam(double t, HT_Double_Point& point, HT_Double_Point& derivative) const {
    const double cosR = std::cos(rotation);
    const double sinR = std::sin(rotation);
    const double cosT = std::cos(t);
    const double sinT = std::sin(t);
    point.x = center.x + radiusX * cosR * cosT - radiusY * sinR * sinT;
    point.y = center.y + radiusX * sinR * cosT + radiusY * cosR * sinT;
    derivative.x = -radiusX * cosR * sinT - radiusY * sinR * cosT;
    derivative.y = radiusY * cosR * cosT - radiusX * sinR * sinT;
}

HT_Double_Point HT_EllipArc::startPoint() const {
    return mirroredPoint(*this, startParam);
}

HT_Double_Point HT_EllipArc::endPoint() const {
    return mirroredPoint(*this, endParam);
}

double HT_EllipArc::angleFromParam(double t, double ratio) {
    if (std::fabs(t) <= geometricTolerance) {
        return 0.0;
    }
    if (std::fabs(t - fullTurn) <= geometricTolerance) {
        return fullTurn;
    }
    const double angle = std::atan2(ratio * std::sin(t), std::cos(t));
    const double distance = std::fabs(t - angle);
    if (distance < halfTurn) {
        return angle;
    }
    const double turns = nearestTurns(distance) * fullTurn;
    return t > angle ? angle + turns : angle - turns;
}

void HT_EllipArc::calcGdiEllipseParam(tagRECT& rect, tagXFORM& xform) const {
    const int32_t halfWidth = roundToInt32(radiusX);
    const int32_t halfHeight = roundToInt32(radiusY);
    const int32_t x = roundToInt32(center.x);
    const int32_t y = roundToInt32(center.y);
    rect.left = wrappedDifference(x, halfWidth);
    rect.top = wrappedDifference(y, halfHeight);
    rect.right = wrappedSum(x, halfWidth);
    rect.bottom = wrappedSum(y, halfHeight);

    const double c = std::cos(rotation);
    const double s = std::sin(-rotation);
    xform.eM11 = static_cast<float>(c);
    xform.eM12 = static_cast<float>(s);
    xform.eM21 = static_cast<float>(-s);
    xform.eM22 = static_cast<float>(c);
    xform.eDx = narrowed(center.x - center.x * c + center.y * s);
    xform.eDy = narrowed(center.y - center.y * c - center.x * s);
}

void HT_EllipArc::calcGdiArcParam(tagRECT& rect, tagPOINT& start, tagPOINT& end, tagXFORM& xform) const {
    calcGdiEllipseParam(rect, xform);
    const double ratio = radiusY / radiusX;
    const auto radialPoint = [&](double t) -> tagPOINT {
        const double angle = angleFromParam(t, ratio);
        return {roundToInt32(center.x + radiusX * std::cos(angle)), roundToInt32(center.y - radiusX * std::sin(angle))};
    };
    start = radialPoint(startParam);
    end = radialPoint(endParam);
}
