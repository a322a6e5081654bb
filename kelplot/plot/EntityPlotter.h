// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/EntityWalk.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

/// Draws those of the entities that a walk meets that may show.
class EntityPlotter : public EntityVisitor {
public:
    /// `tools` are borrowed for the plotter's life.
    explicit EntityPlotter(PlotTools& tools) : m_tools(tools) {}

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) override;

    /// What the entity may cover, with the width of its lines, in device coordinates.
    Box2 inkBox(const Entity& entity, const EntityStyle& style, const PlanMap& map) const;

private:
    PlotTools& m_tools;
};

} // namespace kelplot
