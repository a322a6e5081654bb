// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/EntityPlotter.h"

#include "plot/entity/EntityKinds.h"

namespace kelplot {

Box2 EntityPlotter::inkBox(const Entity& entity, const EntityStyle& style, const PlanMap& map) const {
    const bool isPoint = std::holds_alternative<PointEntity>(entity.geometry);
    const double margin = m_tools.linePen(style).width + (isPoint ? m_tools.pointSize() : 0.0);
    return boxOf(MeasuredEntity{entity, map, CurveBox::hull, m_tools.typesetter}).inflated(margin);
}

void EntityPlotter::visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) {
    if (!m_tools.canvas.mayShow(inkBox(entity, style, map), 0.0)) {
        return;
    }
    const PlacedEntity place{entity, style, map};
    std::visit([&](const auto& geometry) { draw(geometry, place, m_tools); }, entity.geometry);
}

} // namespace kelplot
