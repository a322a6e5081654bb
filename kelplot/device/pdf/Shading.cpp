// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/Shading.h"

#include <QLineF>
#include <algorithm>
#include <cmath>
#include <vector>

#include "device/pdf/PdfBytes.h"

namespace kelplot {
namespace {

constexpr int decimals = 5;
/// How often a gradient begins anew at most.
constexpr int mostRepeats = 100;

/// The stretches of a gradient that are laid out: from its `first` beginning to before the one numbered `end`.
struct Repeats {
    int first = 0;
    int end = 1;
};

Repeats linearRepeats(const QLinearGradient& gradient, const QRectF& area) {
    const QPointF along = gradient.finalStop() - gradient.start();
    const double square = QPointF::dotProduct(along, along);
    double least = 0.0;
    double most = 1.0;
    for (const QPointF& corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()}) {
        const double at = square > 0.0 ? QPointF::dotProduct(corner - gradient.start(), along) / square : 0.0;
        least = std::min(least, at);
        most = std::max(most, at);
    }
    return {static_cast<int>(std::max(-double{mostRepeats}, std::floor(least))),
            static_cast<int>(std::min(double{mostRepeats}, std::ceil(most)))};
}

Repeats radialRepeats(const QRadialGradient& gradient, const QRectF& area) {
    double farthest = 0.0;
    for (const QPointF& corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()}) {
        farthest = std::max(farthest, QLineF(gradient.focalPoint(), corner).length());
    }
    // The circles grow slowest on the side to which the focus is moved.
    const double growth =
        gradient.centerRadius() - gradient.focalRadius() - QLineF(gradient.focalPoint(), gradient.center()).length();
    const double count = growth > 0.0 ? std::ceil(farthest / growth) : 1.0;
    return {0, static_cast<int>(std::clamp(count, 1.0, double{mostRepeats}))};
}

QGradientStops wholeStops(const QGradient& gradient) {
    QGradientStops stops = gradient.stops();
    if (stops.first().first > 0.0) {
        stops.prepend({0.0, stops.first().second});
    }
    if (stops.last().first < 1.0) {
        stops.append({1.0, stops.last().second});
    }
    return stops;
}

/// The stops of all stretches, in parts of the whole.
QGradientStops laidOut(const QGradient& gradient, const Repeats& repeats) {
    const QGradientStops stops = wholeStops(gradient);
    const double count = repeats.end - repeats.first;
    QGradientStops result;
    for (int stretch = repeats.first; stretch < repeats.end; ++stretch) {
        const bool isTurned = gradient.spread() == QGradient::ReflectSpread && stretch % 2 != 0;
        for (int i = 0; i < stops.size(); ++i) {
            const QGradientStop& stop = stops[isTurned ? stops.size() - 1 - i : i];
            const double within = isTurned ? 1.0 - stop.first : stop.first;
            result.append({(stretch - repeats.first + within) / count, stop.second});
        }
    }
    return result;
}

void writeColour(PdfBytes& bytes, const QColor& colour, ShadingPart part) {
    bytes << '[';
    if (part == ShadingPart::opacities) {
        bytes.decimal(colour.alphaF(), decimals);
    } else {
        bytes.decimal(colour.redF(), decimals).decimal(colour.greenF(), decimals).decimal(colour.blueF(), decimals);
    }
    bytes << ']';
}

/// A function from 0 to 1 that takes the colours of the stops one after the other.
PdfBytes functionOf(const QGradientStops& stops, ShadingPart part) {
    PdfBytes parts;
    PdfBytes bounds;
    PdfBytes ranges;
    double last = 0.0;
    for (int i = 1; i < stops.size(); ++i) {
        constexpr double nothing = 1e-5;
        if (stops[i].first - last < nothing) { // the colour leaps
            continue;
        }
        if (!parts.isEmpty()) {
            bounds.decimal(last, decimals);
        }
        parts << "<</FunctionType 2/N 1/Domain[0 1]/C0";
        writeColour(parts, stops[i - 1].second, part);
        parts << "/C1";
        writeColour(parts, stops[i].second, part);
        parts << ">>";
        ranges << "0 1 ";
        last = stops[i].first;
    }
    PdfBytes function;
    function << "<</FunctionType 3/Domain[0 1]/Functions[" << parts.view() << "]/Bounds[" << bounds.view()
             << "]/Encode[" << ranges.view() << "]>>";
    return function;
}

void writePoint(PdfBytes& bytes, const QPointF& point) {
    bytes.decimal(point.x(), decimals).decimal(point.y(), decimals);
}

} // namespace

std::string shadingDictionary(const QGradient& gradient, const QRectF& area, ShadingPart part) {
    const bool isLinear = gradient.type() == QGradient::LinearGradient;
    const bool isRepeated = gradient.spread() != QGradient::PadSpread;
    Repeats repeats;
    PdfBytes ends;
    if (isLinear) {
        const auto& linear = static_cast<const QLinearGradient&>(gradient);
        const QPointF along = linear.finalStop() - linear.start();
        repeats = isRepeated ? linearRepeats(linear, area) : repeats;
        writePoint(ends, linear.start() + along * repeats.first);
        writePoint(ends, linear.start() + along * repeats.end);
    } else {
        const auto& radial = static_cast<const QRadialGradient&>(gradient);
        const QPointF along = radial.center() - radial.focalPoint();
        repeats = isRepeated ? radialRepeats(radial, area) : repeats;
        writePoint(ends, radial.focalPoint());
        ends.decimal(radial.focalRadius(), decimals);
        writePoint(ends, radial.focalPoint() + along * repeats.end);
        ends.decimal(radial.focalRadius() + (radial.centerRadius() - radial.focalRadius()) * repeats.end, decimals);
    }
    PdfBytes dictionary;
    dictionary << "<</ShadingType " << (isLinear ? 2 : 3) << "/ColorSpace/"
               << (part == ShadingPart::opacities ? "DeviceGray" : "DeviceRGB") << "/Extend[true true]/Coords["
               << ends.view() << "]/Function" << functionOf(laidOut(gradient, repeats), part).view() << ">>";
    return std::string(dictionary.view());
}

} // namespace kelplot
