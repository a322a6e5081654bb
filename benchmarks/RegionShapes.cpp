// SPDX-License-Identifier: BSD-3-Clause
#include "RegionShapes.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

Outline star(size_t vertices, HT_Double_Point centre, double radius, unsigned seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> share(1.0 - std::min(0.3, 30.0 / static_cast<double>(vertices)), 1.0);
    Outline outline;
    for (size_t i = 0; i < vertices; ++i) {
        const double angle = 2.0 * M_PI * static_cast<double>(i) / static_cast<double>(vertices);
        const double reach = radius * share(random);
        outline.push_back({centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle)});
    }
    return outline;
}

Outline circle(size_t corners, HT_Double_Point centre, double radius) {
    Outline outline;
    for (size_t i = 0; i < corners; ++i) {
        const double angle = 2.0 * M_PI * static_cast<double>(i) / static_cast<double>(corners);
        outline.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return outline;
}

Outline teeth(size_t vertices) {
    Outline outline{{900, -100}, {-900, -100}};
    const double step = 1800.0 / static_cast<double>(vertices - 3);
    for (size_t i = 0; i + 2 < vertices; ++i) {
        outline.push_back({-900.0 + step * static_cast<double>(i), i % 2 == 0 ? 0.0 : 100.0});
    }
    return outline;
}

Outline teethFromAbove(size_t vertices) {
    Outline outline = teeth(vertices);
    const double shift = 600.0 / static_cast<double>(vertices); // a third of a tooth's side
    for (HT_Double_Point& point : outline) {
        point = {point.x + shift, 130.0 - point.y};
    }
    return outline;
}

Outline exchanged(Outline outline) {
    for (HT_Double_Point& point : outline) {
        std::swap(point.x, point.y);
    }
    return outline;
}

double signedArea(const HT_Double_Point* points, size_t count) {
    double sum = 0.0;
    for (size_t i = 0; i < count; ++i) {
        const HT_Double_Point& next = points[(i + 1) % count];
        sum += points[i].x * next.y - next.x * points[i].y;
    }
    return sum / 2.0;
}
