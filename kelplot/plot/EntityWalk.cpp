// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/EntityWalk.h"

#include <algorithm>
#include <utility>

namespace kelplot {

namespace {

/// From an entity's own coordinates. An ellipse alone has an extrusion about which it runs, and world coordinates.
PlanMap mapOf(const Entity& entity, const PlanMap& map) {
    const bool levelPlane = entity.extrusion == Vec3{0.0, 0.0, 1.0};
    return levelPlane || std::holds_alternative<Ellipse>(entity.geometry) ? map
                                                                          : map.after(frameOfPlane(entity.extrusion));
}

size_t entitiesInBlocks(const Drawing& drawing) {
    size_t count = 0;
    for (const Block& block : drawing.blocks) {
        count += block.entities.size();
    }
    return count;
}

/// In visits: cutting takes time with every corner of a border, and still more where it crosses itself.
size_t costOfCutting(size_t corners, size_t crossings) {
    constexpr size_t costOfCorner = 4;
    constexpr size_t costOfCrossing = 500;
    return costOfCorner * corners + costOfCrossing * crossings;
}

/// Collects what the entities that a walk meets cover.
class InkFinder : public EntityVisitor {
public:
    explicit InkFinder(const VisiblePart& visible) : m_visible(visible) {}

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) override {
        m_ink.add(m_visible.inkBox(entity, style, map));
    }
    const Box2& ink() const { return m_ink; }

private:
    const VisiblePart& m_visible;
    Box2 m_ink;
};

} // namespace

void WalkReport::add(const WalkReport& other) {
    tooManyCopies = tooManyCopies || other.tooManyCopies;
    tooDeep = tooDeep || other.tooDeep;
    visitsInBlocks += other.visitsInBlocks;
    undefined.insert(other.undefined.begin(), other.undefined.end());
    uncut.insert(other.uncut.begin(), other.uncut.end());
    external.insert(other.external.begin(), other.external.end());
}

EntityWalk::EntityWalk(const Drawing& drawing, WalkRules rules, EntityVisitor& visitor)
    : m_drawing(drawing), m_styles(drawing, rules.layers), m_rules(std::move(rules)), m_visitor(&visitor),
      m_open(drawing.blocks.size(), 0) {
}

WalkReport EntityWalk::run(const std::vector<Entity>& entities, const PlanMap& map, const Progress& progress) {
    m_report = {};
    m_progress = progress ? &progress : nullptr;
    constexpr size_t walksOfAPlot = 8; // viewports may show a model of blocks so often in full
    const size_t most = m_rules.limits.visitsInBlocks +
                        m_rules.limits.moreForEachEntity * (entities.size() + entitiesInBlocks(m_drawing));
    const size_t spent = std::min(m_rules.visitsSpent, walksOfAPlot * most);
    const size_t allowed = std::min(most, walksOfAPlot * most - spent);
    m_visitsLeft = allowed;
    const auto count = static_cast<double>(entities.size());
    for (size_t i = 0; i < entities.size(); ++i) {
        const Stretch stretch = Stretch().part(static_cast<double>(i), count);
        visit(entities[i], m_styles.resolve(entities[i].attributes), map, stretch);
    }
    if (progress) {
        progress(1.0);
    }
    m_report.visitsInBlocks = allowed - m_visitsLeft;
    return m_report;
}

/// False, and nothing spent, when there has been enough.
bool EntityWalk::spendVisits(size_t count) {
    if (m_visitsLeft < count) {
        m_report.tooManyCopies = true;
        return false;
    }
    m_visitsLeft -= count;
    return true;
}

/// Spends what an entity costs apart from its visit: pictures may be cut along borders of their own.
bool EntityWalk::spendFor(const Entity& entity) {
    const auto* const image = geometryAs<Image>(entity);
    return image == nullptr || !image->clipped || spendVisits(costOfCutting(image->clip.size(), image->crossings));
}

void EntityWalk::tell(const Stretch& stretch) {
    constexpr size_t visitsBetween = 1024;
    if (m_progress && m_visits % visitsBetween == 0) {
        (*m_progress)(stretch.start);
    }
    ++m_visits;
}

void EntityWalk::visit(const Entity& entity, const EntityStyle& style, const PlanMap& map, const Stretch& stretch) {
    tell(stretch);
    if (!entity.attributes.visible) {
        return;
    }
    if (std::holds_alternative<Insert>(entity.geometry)) {
        visitReference(entity, style, map, stretch);
    } else if (m_styles.isPlotted(style.layer) && spendFor(entity)) {
        m_visitor->visit(entity, style, mapOf(entity, map));
    }
}

/// A frozen layer takes the whole block away; one that is off or kept off paper takes only what lies on it.
void EntityWalk::visitReference(const Entity& entity, const EntityStyle& style, const PlanMap& map,
                                const Stretch& stretch) {
    if (m_styles.isFrozen(style.layer)) {
        return;
    }
    const auto& insert = std::get<Insert>(entity.geometry);
    if (insert.block >= m_drawing.blocks.size() || !m_drawing.blocks[insert.block].defined) {
        m_report.undefined.insert(&insert);
        return;
    }
    const Block& block = m_drawing.blocks[insert.block];
    if (!block.externalPath.empty() && block.entities.empty()) {
        m_report.external.insert(insert.block);
        return;
    }
    if (m_open[insert.block] || block.entities.empty()) {
        return;
    }
    if (m_depth == m_rules.limits.nesting) {
        m_report.tooDeep = true;
        return;
    }
    m_open[insert.block] = 1;
    ++m_depth;
    const CopyGrid grid(insert, block.basePoint, mapOf(entity, map));
    visitCopies(insert, style, grid, stretch);
    --m_depth;
    m_open[insert.block] = 0;
}

/// The clip of a reference whose block is placed by `map`; nothing where it has none, or one that does not cut straight
/// through the plane of the walk.
std::optional<WalkClip> EntityWalk::clipOf(const Insert& insert, const PlanMap& map) {
    constexpr double mostSlant = 1e-6;
    if (insert.clip >= m_drawing.clips.size()) {
        return std::nullopt;
    }
    const ReferenceClip& stated = m_drawing.clips[insert.clip];
    const bool isSlanted = !stated.border.empty() && map.mapDirection(stated.depth).length() >
                                                         mostSlant * map.meanScale() * stated.depth.length();
    if (stated.slices || isSlanted) {
        m_report.uncut.insert(&insert);
    }
    if (stated.border.empty() || isSlanted) {
        return std::nullopt;
    }
    WalkClip clip;
    clip.crossings = stated.crossings;
    clip.inverted = stated.inverted;
    for (const Vec3& corner : stated.border) {
        clip.border.push_back(map.mapPoint(corner));
    }
    return clip;
}

/// A clip counts as much as those around it do besides.
void EntityWalk::visitCut(const Block& block, const EntityStyle& style, const PlanMap& map, const WalkClip& clip,
                          const Stretch& stretch) {
    const size_t cost = costOfCutting(clip.border.size(), clip.crossings);
    m_clipCost += cost;
    if (spendVisits(m_clipCost)) {
        WalkClip framed = clip;
        framed.frame = m_drawing.clipFrames && m_styles.isPlotted(style.layer) ? &style : nullptr;
        m_visitor->beginClip(framed);
        visitCopy(block, style, map, stretch);
        m_visitor->endClip();
    }
    m_clipCost -= cost;
}

/// Each copy has the clip of the reference, which belongs to the block.
void EntityWalk::visitCopies(const Insert& insert, const EntityStyle& reference, const CopyGrid& grid,
                             const Stretch& stretch) {
    const Block& block = m_drawing.blocks[insert.block];
    const bool all = m_rules.copies == ArrayCopies::all;
    const int64_t columnStep = all ? 1 : std::max(grid.columns - 1, 1);
    const int64_t rowStep = all ? 1 : std::max(grid.rows - 1, 1);
    const std::optional<Box2> ink = inkOfFirst(block, reference, grid, stretch);
    const auto count = static_cast<double>(grid.count());
    for (int64_t row = 0; row < grid.rows && spendVisits(1); row += rowStep) {
        const int rowIndex = static_cast<int>(row);
        const CopyGrid::Range columns =
            ink ? grid.columnsThatMeet(m_rules.visible.box, *ink, rowIndex) : CopyGrid::Range{0, grid.columns};
        for (int64_t column = columns.begin; column < columns.end && !m_report.tooManyCopies; column += columnStep) {
            const auto index = static_cast<double>(row * grid.columns + column);
            const PlanMap map = grid.mapOf(static_cast<int>(column), rowIndex);
            const Stretch part = stretch.part(index, count);
            if (const auto clip = clipOf(insert, map)) {
                visitCut(block, reference, map, *clip, part);
            } else {
                visitCopy(block, reference, map, part);
            }
        }
    }
}

void EntityWalk::visitCopy(const Block& block, const EntityStyle& reference, const PlanMap& map,
                           const Stretch& stretch) {
    const auto count = static_cast<double>(block.entities.size());
    for (size_t i = 0; i < block.entities.size() && spendVisits(1); ++i) {
        const Entity& entity = block.entities[i];
        const Stretch part = stretch.part(static_cast<double>(i), count);
        visit(entity, m_styles.resolve(entity.attributes, reference), map, part);
    }
}

/// What the first of many copies covers, from a walk of its own; nothing where finding out is not worth the effort.
std::optional<Box2> EntityWalk::inkOfFirst(const Block& block, const EntityStyle& reference, const CopyGrid& grid,
                                           const Stretch& stretch) {
    constexpr int64_t worthwhileCopies = 16;
    if (!m_rules.visible.inkBox || m_rules.copies != ArrayCopies::all || grid.count() < worthwhileCopies) {
        return std::nullopt;
    }
    InkFinder finder(m_rules.visible);
    EntityVisitor* const visitor = std::exchange(m_visitor, &finder);
    m_rules.copies = ArrayCopies::corners;
    visitCopy(block, reference, grid.first, {stretch.start, 0.0});
    m_rules.copies = ArrayCopies::all;
    m_visitor = visitor;
    return finder.ink();
}

} // namespace kelplot
