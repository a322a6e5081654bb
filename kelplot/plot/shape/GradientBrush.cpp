// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/shape/GradientBrush.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

QPointF pointOf(Vec2 p) {
    return {p.x, p.y};
}

/// The colours along a gradient of a name. "INV" before a name exchanges them.
QGradientStops stopsFor(const std::string& shape, QColor first, QColor second) {
    if (shape == "CYLINDER") { // the second colour in the middle, as if light fell there
        return {{0.0, first}, {0.5, second}, {1.0, first}};
    }
    if (shape == "SPHERICAL" || shape == "HEMISPHERICAL") { // from the middle outwards
        return {{0.0, second}, {1.0, first}};
    }
    if (shape == "CURVED") { // slowly at first, as on a quarter of a cylinder
        constexpr int steps = 8;
        QGradientStops stops;
        for (int i = 0; i <= steps; ++i) {
            const double at = static_cast<double>(i) / steps;
            const double part = at * at;
            stops.append({at, QColor::fromRgbF(first.redF() + part * (second.redF() - first.redF()),
                                               first.greenF() + part * (second.greenF() - first.greenF()),
                                               first.blueF() + part * (second.blueF() - first.blueF()))});
        }
        return stops;
    }
    return {{0.0, first}, {1.0, second}};
}

} // namespace

QBrush gradientBrush(const HatchGradient& gradient, const Box2& box, Vec2 direction, const QColor& first,
                     const QColor& second) {
    const bool inverted = gradient.name.compare(0, 3, "INV") == 0;
    const std::string shape = inverted ? gradient.name.substr(3) : gradient.name;
    const QGradientStops stops = stopsFor(shape, inverted ? second : first, inverted ? first : second);
    const Vec2 size{box.width(), box.height()};
    // Moved by a quarter of the area to the upper left where it is shifted.
    const Vec2 centre = box.center() + Vec2{-size.x, -size.y} * (0.25 * gradient.shift);
    const double length = direction.length();
    const Vec2 along = length > 0.0 ? direction * (1.0 / length) : Vec2{1.0, 0.0};
    const double reach = (std::abs(along.x) * size.x + std::abs(along.y) * size.y) / 2.0;
    if (shape == "SPHERICAL") {
        QRadialGradient radial(pointOf(centre), size.length() / 2.0);
        radial.setStops(stops);
        return radial;
    }
    if (shape == "HEMISPHERICAL") { // the light stands at the lower edge
        QRadialGradient radial(pointOf(centre - leftNormal(along) * -reach), size.length());
        radial.setStops(stops);
        return radial;
    }
    QLinearGradient linear(pointOf(centre - along * reach), pointOf(centre + along * reach));
    linear.setStops(stops);
    return linear;
}

} // namespace kelplot
