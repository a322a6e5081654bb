// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QTransform>

#include "geometry/Numeric.h"
#include "render/LogFont.h"
#include "render/TextOutlines.h"
#include "render/TextShape.h"

using namespace KelDriver::Internal;

namespace {

/// The sum of the rounded advances, without the stretch that the transform adds; 32 bits wide, and it wraps.
int32_t roundedWidth(const double* charWidths, int length, double widthFactor) {
    uint32_t sum = 0;
    for (int i = 0; i < length; ++i) {
        sum += static_cast<uint32_t>(roundToInt32(charWidths[i] / widthFactor));
    }
    return static_cast<int32_t>(sum);
}

/// The elements of a text's transform are rounded to single precision: part of the interface.
double inSinglePrecision(double value) {
    return static_cast<double>(static_cast<float>(value));
}

QTransform textTransform(double degrees, double obliqueAngle, double widthFactor, const HT_Double_Point& position,
                         double scale) {
    const double c = std::cos(radiansPerDegree * degrees);
    const double s = std::sin(-(radiansPerDegree * degrees));
    const double t = std::tan(-obliqueAngle);
    QTransform transform(inSinglePrecision(c * widthFactor), inSinglePrecision(s * widthFactor), 0.0,
                         inSinglePrecision(t * c - s), inSinglePrecision(c + s * t), 0.0,
                         inSinglePrecision(position.x * scale), inSinglePrecision(position.y * scale), 1.0);
    return transform.scale(scale, scale);
}

bool isFinite(const QTransform& transform) {
    // One sum tells for all: not finite, or too large to show.
    return std::isfinite(std::fabs(transform.m11()) + std::fabs(transform.m12()) + std::fabs(transform.m21()) +
                         std::fabs(transform.m22()) + std::fabs(transform.dx()) + std::fabs(transform.dy()));
}

} // namespace

void QTRenderer::DrawText(wchar_t* text, int length, const HT_Font& font, const HT_Double_Point& position,
                          double obliqueAngle, double widthFactor, double* charWidths) {
    if (painter == nullptr || text == nullptr) {
        return;
    }
    const QTransform transform = textTransform(font.rotation, obliqueAngle, widthFactor, position, scale);
    if (widthFactor == 0.0 || !isFinite(transform)) {
        return; // nothing would show, and the widths could not be divided by the factor
    }
    TextShape shape{text, logFontFor(font), 0, 0, screenDotsPerInch()};
    const int32_t width = charWidths != nullptr ? roundedWidth(charWidths, length, widthFactor) : 0;
    if (width >= 1) {
        shape.width = width;
        shape.measured = std::max(length, 0);
    }
    TextOutlines* const kept = textOutlinesOf(this);
    const QPainterPath outline = kept != nullptr ? kept->get(shape) : outlineOf(shape);

    painter->save();
    painter->setBackgroundMode(Qt::TransparentMode);
    painter->setPen(color);
    painter->setWorldTransform(transform);
    painter->fillPath(outline, QBrush(color, Qt::SolidPattern));
    painter->restore();
}
