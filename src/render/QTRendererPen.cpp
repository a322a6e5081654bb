// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <cstdint>

#include <QPainter>
#include <QPen>

#include "geometry/Numeric.h"

using namespace KelDriver::Internal;

namespace {

Qt::PenCapStyle capStyleFor(HT_PlotStyle::LineEndStyle style) {
    switch (style) {
    case HT_PlotStyle::LineEndFlat:
        return Qt::FlatCap;
    case HT_PlotStyle::LineEndSquare:
        return Qt::SquareCap;
    default:
        return Qt::RoundCap;
    }
}

Qt::PenJoinStyle joinStyleFor(HT_PlotStyle::LineJoinStyle style) {
    switch (style) {
    case HT_PlotStyle::LineJoinMiter:
        return Qt::MiterJoin;
    case HT_PlotStyle::LineJoinBevel:
        return Qt::BevelJoin;
    default:
        return Qt::RoundJoin;
    }
}

Qt::PenStyle penStyleFor(HT_PlotStyle::LineType type) {
    switch (type) {
    case HT_PlotStyle::LineTypeDash:
        return Qt::DashLine;
    case HT_PlotStyle::LineTypeDot:
        return Qt::DotLine;
    case HT_PlotStyle::LineTypeDashDot:
        return Qt::DashDotLine;
    case HT_PlotStyle::LineTypeCustom:
        return Qt::CustomDashLine;
    default:
        return Qt::SolidLine;
    }
}

// A dash or gap of `length` device units in multiples of the pen width, before the scale.
double dashElement(double length, bool isGap, double width) {
    const bool isZero = !(length > geometricTolerance) && !(length < -geometricTolerance);
    if (isZero) {
        return 1.0; // one pen width, whatever the weight
    }
    double element = roundToInt32(length);
    if (isGap) {
        element -= width; // below zero where the gap is shorter: part of the interface
    }
    return width > geometricTolerance ? element / width : element;
}

} // namespace

void QTRenderer::SetLineWeight(double weight) {
    penWidth = roundToInt32(weight);
    CreatePen();
}

void QTRenderer::SetLineEndStyle(HT_PlotStyle::LineEndStyle style) {
    capStyle = capStyleFor(style);
    CreatePen();
}

void QTRenderer::SetLineJoinStyle(HT_PlotStyle::LineJoinStyle style) {
    joinStyle = joinStyleFor(style);
    CreatePen();
}

void QTRenderer::SetLineType(HT_PlotStyle::LineType type, double* pattern, unsigned int count) {
    penStyle = penStyleFor(type);
    dashPattern.clear();
    if (type == HT_PlotStyle::LineTypeCustom && pattern != nullptr) {
        const double width = static_cast<uint32_t>(penWidth);
        for (unsigned int i = 0; i < count; ++i) {
            dashPattern.append(dashElement(pattern[i], i % 2 != 0, width) * scale);
        }
    }
    CreatePen();
}

void QTRenderer::CreatePen() {
    if (painter == nullptr) {
        return;
    }
    QPen pen;
    pen.setStyle(penStyle);
    pen.setCapStyle(capStyle);
    pen.setJoinStyle(joinStyle);
    pen.setWidth(penWidth);
    pen.setColor(color);
    if (!dashPattern.isEmpty()) {
        pen.setDashPattern(dashPattern);
    }
    painter->setPen(pen);
}
