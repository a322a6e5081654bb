// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/EntityPlotter.h"

namespace kelplot {

namespace {

constexpr HT_Color paper = 0xFFFFFF;

} // namespace

void EntityPlotter::draw(const Image& image, const Current& current) {
    bool missing = false;
    if (image.shown) {
        useFill(current); // an ink of the opacity that the picture is going to have
        missing = !m_pictures.draw(image, current.style.opacity, current.map);
    }
    if (m_drawing.imageFrames || missing) {
        frame(image, image.outline(), current);
    }
    if (m_drawing.imageFrames && image.clipped && image.clipInverted) {
        frame(image, image.clip, current);
    }
}

void EntityPlotter::frame(const Image& image, const std::vector<Vec2>& pixels, const Current& current) {
    std::vector<Vec3> corners;
    corners.reserve(pixels.size());
    for (const Vec2 pixel : pixels) {
        corners.push_back(image.pointAt(pixel));
    }
    frame(corners, current);
}

void EntityPlotter::frame(const std::vector<Vec3>& corners, const Current& current) {
    m_path.clear();
    for (const Vec3& corner : corners) {
        m_path.push_back(current.map.mapPoint(corner));
    }
    if (!m_path.empty()) {
        m_path.push_back(m_path.front());
        useLinePen(current);
        m_canvas.drawPolyline(m_path);
    }
}

void EntityPlotter::draw(const Wipeout& wipeout, const Current& current) {
    m_path.clear();
    for (const Vec3& corner : wipeout.boundary) {
        m_path.push_back(current.map.mapPoint(corner));
    }
    m_pens.setFill(paper, opaque);
    m_canvas.fillPolygon(m_path);
    if (m_drawing.wipeoutFrames) {
        frame(wipeout.boundary, current);
    }
}

} // namespace kelplot
