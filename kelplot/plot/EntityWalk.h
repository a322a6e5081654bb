// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "base/Progress.h"
#include "drawing/Drawing.h"
#include "geometry/Box2.h"
#include "geometry/PlanMap.h"
#include "plot/CopyGrid.h"
#include "plot/entity/EntityStyle.h"

namespace kelplot {

/// A border that cuts what a reference shows, in the coordinates of a walk.
struct WalkClip {
    std::vector<Vec2> border;
    size_t crossings = 0;               ///< of the border with itself
    bool inverted = false;              ///< what lies within the border is left out
    const EntityStyle* frame = nullptr; ///< of the border as a line, where that is to be seen
};

/// Receives the entities of a walk, but never a reference to a block.
class EntityVisitor {
public:
    virtual ~EntityVisitor() = default;
    /// @param map  from the entity's own coordinates to those of the walk
    virtual void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) = 0;

    /// Everything up to the end of this copy comes from one copy of a block.
    virtual void beginCopy() {}
    virtual void endCopy() {}
    /// Everything up to the end of this clip is cut by it.
    virtual void beginClip(const WalkClip&) {}
    virtual void endClip() {}
};

/// Which copies of a block in rows and columns a walk visits. The corner ones bound all.
enum class ArrayCopies { all, corners };

/// Blocks in blocks, and copies of copies, multiply: a file of a few lines can ask for more than any machine could
/// draw. Real drawings stay far below these numbers.
struct WalkLimits {
    size_t nesting = 100;
    size_t visitsInBlocks = 2'000'000; ///< of entities and rows of copies
    size_t moreForEachEntity = 100;    ///< a large drawing may hold more, in proportion to its size
};

/// The part of the page that shows, in the coordinates of a walk, and what an entity covers at most. Copies in rows
/// and columns that do not meet it are left out.
struct VisiblePart {
    Box2 box;
    std::function<Box2(const Entity&, const EntityStyle&, const PlanMap&)> inkBox;
};

struct WalkRules {
    ArrayCopies copies = ArrayCopies::all;
    VisiblePart visible = {}; ///< all shows where it cannot tell what entities cover
    WalkLimits limits = {};
    LayerView layers = {};
    size_t visitsSpent = 0; ///< in blocks, by the walks of the same plot before
};

/// What a walk did not visit.
struct WalkReport {
    bool tooManyCopies = false;
    bool tooDeep = false;
    std::set<const Insert*> undefined; ///< references to blocks that the drawing does not define
    std::set<const Insert*> uncut;     ///< references that show more than their clips leave
    std::set<uint32_t> external;       ///< blocks that stand for other drawings, which are not read

    size_t visitsInBlocks = 0; ///< of entities and rows of copies

    void add(const WalkReport& other);
};

/// Goes through the entities of a drawing that show on paper, and into the blocks that they refer to.
class EntityWalk {
public:
    EntityWalk(const Drawing& drawing, WalkRules rules, EntityVisitor& visitor);

    /// Visits `entities` in their order. `map` takes drawing coordinates to those of the walk.
    WalkReport run(const std::vector<Entity>& entities, const PlanMap& map, const Progress& progress);

private:
    /// A stretch of the way from 0 to 1.
    struct Stretch {
        double start = 0.0;
        double length = 1.0;

        Stretch part(double index, double count) const { return {start + length * index / count, length / count}; }
    };

    bool spendVisits(size_t count);
    bool spendFor(const Entity& entity);
    void tell(const Stretch& stretch);
    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map, const Stretch& stretch);
    void visitReference(const Entity& entity, const EntityStyle& style, const PlanMap& map, const Stretch& stretch);
    std::optional<WalkClip> clipOf(const Insert& insert, const PlanMap& map);
    void visitCut(const Block& block, const EntityStyle& style, const PlanMap& map, const WalkClip& clip,
                  const Stretch& stretch);
    void visitCopies(const Insert& insert, const EntityStyle& reference, const CopyGrid& grid, const Stretch& stretch);
    void visitCopy(const Block& block, const EntityStyle& reference, const PlanMap& map, const Stretch& stretch);
    std::optional<Box2> inkOfFirst(const Block& block, const EntityStyle& reference, const CopyGrid& grid,
                                   const Stretch& stretch);

    const Drawing& m_drawing;
    StyleResolver m_styles;
    WalkRules m_rules;
    EntityVisitor* m_visitor;
    const Progress* m_progress = nullptr;
    WalkReport m_report;
    std::vector<char> m_open; ///< blocks that the walk is in
    size_t m_clipCost = 0;    ///< of all clips that the walk is in, in visits
    size_t m_depth = 0;
    size_t m_visits = 0;
    size_t m_visitsLeft = 0; ///< in blocks
};

} // namespace kelplot
