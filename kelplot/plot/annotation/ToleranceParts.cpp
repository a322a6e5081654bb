// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/ToleranceParts.h"

#include <algorithm>

#include "geometry/Affine2.h"
#include "plot/annotation/PartList.h"

namespace kelplot {

std::vector<Entity> tolerancePartsOf(const ToleranceFrame& frame, const std::vector<std::vector<Vec2>>& sizes) {
    const Affine2 map =
        Affine2::translation({frame.position.x, frame.position.y}).after(Affine2::rotationRadians(frame.rotation));
    const double height = frame.textHeight + 2.0 * frame.gap;
    PartList parts(frame.position.z);
    const auto addLine = [&](Vec2 from, Vec2 to) {
        parts.addLine(map.mapPoint(from), map.mapPoint(to), frame.line);
    };
    double top = height / 2.0;
    for (size_t row = 0; row < frame.rows.size(); ++row) {
        const double bottom = top - height;
        double left = 0.0;
        addLine({left, top}, {left, bottom});
        for (size_t cell = 0; cell < frame.rows[row].size(); ++cell) {
            const double width = std::max(sizes[row][cell].x, frame.textHeight / 2.0) + 2.0 * frame.gap;
            const Vec2 middle{left + width / 2.0, (top + bottom) / 2.0};
            parts.addText(frame.rows[row][cell], map.mapPoint(middle), frame.rotation, frame.textColour);
            left += width;
            addLine({left, top}, {left, bottom});
        }
        addLine({0.0, top}, {left, top});
        addLine({0.0, bottom}, {left, bottom});
        top = bottom;
    }
    return parts.take();
}

} // namespace kelplot
