#pragma once

#include <vector>

#include "drawing/Drawing.h"
#include "geometry/PlanMap.h"
#include "plot/EntityStyle.h"
#include "reader/DrawingReader.h"

namespace kelplot {

/// Meets the entities of a walk; never a reference to a block.
class EntityVisitor {
public:
    virtual ~EntityVisitor() = default;
    /// @param map  from the entity's own coordinates to those of the walk
    virtual void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) = 0;
};

/// Which copies of a block in rows and columns a walk visits. The corner ones bound all.
enum class ArrayCopies { all, corners };

/// Goes through what shows on paper of the entities of a drawing, into the blocks that they refer to.
class EntityWalk {
public:
    EntityWalk(const Drawing& drawing, ArrayCopies copies, EntityVisitor& visitor);

    /// Visits `entities` in their order. `map` takes drawing coordinates to those of the walk.
    void run(const std::vector<Entity>& entities, const PlanMap& map, const Progress& progress);

private:
    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map);
    void visitReference(const Entity& entity, const EntityStyle& style, const PlanMap& map);
    void visitCopy(const Block& block, const EntityStyle& reference, const PlanMap& map);

    const Drawing& m_drawing;
    StyleResolver m_styles;
    ArrayCopies m_copies;
    EntityVisitor& m_visitor;
    std::vector<char> m_open; ///< blocks that the walk is in
    size_t m_depth = 0;
    size_t m_visitsLeft;
};

} // namespace kelplot
