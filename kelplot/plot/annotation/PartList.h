// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Annotation.h"

namespace kelplot {

/// Gathers the entities of a block, all in one plane. What is not finite, and lines without length, are left out.
class PartList {
public:
    explicit PartList(double elevation) : m_elevation(elevation) {}

    void addLine(Vec2 from, Vec2 to, const PartLook& look);
    /// Angles are radians; it runs counter-clockwise.
    void addArc(Vec2 centre, double radius, double start, double end, const PartLook& look);
    /// A copy of a block, about its origin.
    void addBlock(uint32_t block, Vec2 position, double rotation, double size, const PartLook& look);
    void addText(const MText& text, Vec2 position, double rotation, const Colour& colour);

    /// Whether nothing was left out that has no place or no end.
    bool isWhole() const { return m_whole; }
    std::vector<Entity> take() { return std::move(m_entities); }

private:
    void add(Geometry&& geometry, const PartLook& look);
    Vec3 raised(Vec2 p) const { return {p.x, p.y, m_elevation}; }

    double m_elevation;
    bool m_whole = true;
    std::vector<Entity> m_entities;
};

} // namespace kelplot
