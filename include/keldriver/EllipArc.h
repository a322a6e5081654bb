// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <type_traits>
#include <vector>

#include "keldriver/Export.h"
#include "keldriver/Types.h"
#include "keldriver/Win32Types.h"

/// An arc of a rotated ellipse. It runs from `startParam` to `endParam` with increasing parameter.
///
/// Parameters are eccentric angles in radians. Nothing is validated: radii may be zero or negative, angles
/// lie on any turn.
struct KELDRIVER_API HT_EllipArc {
    HT_Double_Point center; ///< of the ellipse
    double radiusX;         ///< semi-axis along the ellipse's own x direction
    double radiusY;         ///< semi-axis along the ellipse's own y direction
    double rotation;        ///< of the ellipse's own x axis, radians, counter-clockwise with y upwards
    double startParam;      ///< eccentric angle of the start, radians
    double endParam;        ///< eccentric angle of the end, radians

    /// Stores the values unchanged.
    HT_EllipArc(const HT_Double_Point& arcCenter, double semiAxisX, double semiAxisY, double rotationAngle,
                double startAngle, double endAngle);

    /// The point at parameter `t` and the derivative there, with y upwards.
    void calcEllipicArcParam(double t, HT_Double_Point& point, HT_Double_Point& derivative) const;

    /// The point at `startParam` with y downwards: the mirror image, about the horizontal line through the centre,
    /// of what `calcEllipicArcParam` gives.
    HT_Double_Point startPoint() const;
    /// The point at `endParam`, likewise with y downwards.
    HT_Double_Point endPoint() const;

    /// The polar angle of the point at eccentric angle `t` on an axis-parallel ellipse, on the same turn as `t`.
    ///
    /// @param ratio  y semi-axis over x semi-axis
    static double angleFromParam(double t, double ratio);

    /// The integer box of the unrotated ellipse and the rotation about its centre, with y downwards.
    ///
    /// Radii and centre are rounded and saturate; the sides of the box wrap round at the ends of the 32-bit
    /// range.
    void calcGdiEllipseParam(tagRECT& rect, tagXFORM& xform) const;

    /// What a GDI arc call takes: as `calcGdiEllipseParam`, and two points in the unrotated frame that give
    /// the directions from the centre in which the arc starts and ends.
    void calcGdiArcParam(tagRECT& rect, tagPOINT& start, tagPOINT& end, tagXFORM& xform) const;
};

/// One cubic Bezier segment.
struct HT_BezierCurve {
    HT_Double_Point p0; ///< start
    HT_Double_Point p1; ///< first control point
    HT_Double_Point p2; ///< second control point
    HT_Double_Point p3; ///< end
};

static_assert(std::is_standard_layout<HT_EllipArc>::value && sizeof(HT_EllipArc) == 56 &&
                  offsetof(HT_EllipArc, radiusX) == 16 && offsetof(HT_EllipArc, radiusY) == 24 &&
                  offsetof(HT_EllipArc, rotation) == 32 && offsetof(HT_EllipArc, startParam) == 40 &&
                  offsetof(HT_EllipArc, endParam) == 48,
              "record shared with drivers");
static_assert(sizeof(HT_BezierCurve) == 64 && offsetof(HT_BezierCurve, p1) == 16 &&
                  offsetof(HT_BezierCurve, p2) == 32 && offsetof(HT_BezierCurve, p3) == 48,
              "record shared with drivers");

/// Replaces `curves` with the arc as Bezier curves with y upwards, each at most a quarter turn.
///
/// A sweep of zero or less goes on round the ellipse until it is positive, so equal ends give a full ellipse.
/// A positive sweep goes round as often as it says, up to 2^24 curves (about 4.2 million turns; the curves
/// then take up one GiB); a longer one is cut to between one and two turns with the same end. Backward sweeps
/// go on turn by turn up to 1e8 radians, beyond which their exact remainder is taken. An arc with an infinite
/// or undefined sweep has no curves.
KELDRIVER_API void HT_ConvertEllipArcToBezierCurves(const HT_EllipArc& arc, std::vector<HT_BezierCurve>& curves);
