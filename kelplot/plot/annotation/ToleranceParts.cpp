// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/ToleranceParts.h"

#include <algorithm>

#include "geometry/Affine2.h"
#include "plot/annotation/PartList.h"

namespace kelplot {

namespace {

/// The height of a row for letters of one line, or for a higher cell.
double heightOf(const std::vector<Box2>& bodies, const ToleranceFrame& frame) {
    double height = frame.textHeight + 2.0 * frame.gap;
    for (const Box2& body : bodies) {
        height = std::max(height, body.height() + frame.gap);
    }
    return height;
}

} // namespace

std::vector<Entity> tolerancePartsOf(const ToleranceFrame& frame, const std::vector<std::vector<Box2>>& bodies) {
    const Affine2 map =
        Affine2::translation({frame.position.x, frame.position.y}).after(Affine2::rotationRadians(frame.rotation));
    PartList parts(frame.position.z);
    const auto addLine = [&](Vec2 from, Vec2 to) {
        parts.addLine(map.mapPoint(from), map.mapPoint(to), frame.line);
    };
    double top = frame.rows.empty() ? 0.0 : heightOf(bodies.front(), frame) / 2.0;
    for (size_t row = 0; row < frame.rows.size(); ++row) {
        const double bottom = top - heightOf(bodies[row], frame);
        double left = 0.0;
        addLine({left, top}, {left, bottom});
        for (size_t cell = 0; cell < frame.rows[row].size(); ++cell) {
            const Box2& body = bodies[row][cell];
            const double width = std::max(body.width(), frame.textHeight / 2.0) + 2.0 * frame.gap;
            const Vec2 middle{left + width / 2.0, (top + bottom) / 2.0};
            const Vec2 position = body.isEmpty() ? middle : middle - body.center();
            parts.addText(frame.rows[row][cell], map.mapPoint(position), frame.rotation, frame.textColour);
            left += width;
            addLine({left, top}, {left, bottom});
        }
        addLine({0.0, top}, {left, top});
        addLine({0.0, bottom}, {left, bottom});
        top = bottom;
    }
    return parts.isWhole() ? parts.take() : std::vector<Entity>();
}

} // namespace kelplot
