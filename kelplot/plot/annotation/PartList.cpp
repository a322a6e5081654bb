// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/PartList.h"

#include <cmath>
#include <utility>

namespace kelplot {

void PartList::add(Geometry&& geometry, const PartLook& look) {
    Entity& entity = m_entities.emplace_back();
    entity.attributes.colour = look.colour;
    entity.attributes.lineType = look.lineType;
    entity.attributes.lineWeight = look.lineWeight;
    entity.geometry = std::move(geometry);
}

void PartList::addLine(Vec2 from, Vec2 to, const PartLook& look) {
    m_whole = m_whole && from.isFinite() && to.isFinite();
    if (m_whole && !(from == to)) {
        add(Line{raised(from), raised(to)}, look);
    }
}

void PartList::addArc(Vec2 centre, double radius, double start, double end, const PartLook& look) {
    m_whole = m_whole && centre.isFinite() && std::isfinite(radius);
    if (m_whole && radius > 0.0 && start < end) {
        add(Arc{raised(centre), radius, start, end}, look);
    }
}

void PartList::addBlock(uint32_t block, Vec2 position, double rotation, double size, const PartLook& look) {
    m_whole = m_whole && position.isFinite() && std::isfinite(rotation) && std::isfinite(size);
    if (m_whole && size > 0.0) {
        Insert insert;
        insert.block = block;
        insert.position = raised(position);
        insert.rotation = rotation;
        insert.scale = {size, size, size};
        add(insert, look);
    }
}

void PartList::addText(const MText& text, Vec2 position, double rotation, const Colour& colour) {
    m_whole = m_whole && position.isFinite() && std::isfinite(rotation);
    if (m_whole) {
        MText placed = text;
        placed.position = raised(position);
        placed.rotation = rotation;
        add(std::move(placed), PartLook{colour});
    }
}

} // namespace kelplot
