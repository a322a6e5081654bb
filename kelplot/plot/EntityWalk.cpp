#include "plot/EntityWalk.h"

#include <algorithm>

namespace kelplot {

namespace {

// Blocks in blocks, and copies of copies, multiply: a file of a few lines can ask for more than any
// machine draws. Real drawings stay far below both numbers.
constexpr size_t deepestNesting = 100;
constexpr size_t mostVisits = 50'000'000;

/// Tells whether an entity of this kind has world coordinates, whatever plane it is said to lie in.
struct LiesInWorld {
    bool operator()(const PointEntity&) const { return true; }
    bool operator()(const Line&) const { return true; }
    bool operator()(const Ellipse&) const { return true; }
    bool operator()(const Spline&) const { return true; }
    bool operator()(const Face3d&) const { return true; }
    bool operator()(const Polyline& polyline) const { return polyline.spatial; }
    template <typename Planar>
    bool operator()(const Planar&) const {
        return false;
    }
};

PlanMap mapOf(const Entity& entity, const PlanMap& map) {
    const bool levelPlane = entity.extrusion == Vec3{0.0, 0.0, 1.0};
    return levelPlane || std::visit(LiesInWorld{}, entity.geometry) ? map : map.after(frameOfPlane(entity.extrusion));
}

/// The frame of a block's content for one copy. Rows and columns run along the turned axes, unscaled.
Frame3 frameOfCopy(const Insert& insert, const Vec3& basePoint, int column, int row) {
    const double cosine = std::cos(insert.rotation);
    const double sine = std::sin(insert.rotation);
    const Vec3 alongColumns{cosine, sine, 0.0};
    const Vec3 alongRows{-sine, cosine, 0.0};
    Frame3 frame;
    frame.x = alongColumns * insert.scale.x;
    frame.y = alongRows * insert.scale.y;
    frame.z = {0.0, 0.0, insert.scale.z};
    frame.origin = insert.position + alongColumns * (insert.columnSpacing * column) +
                   alongRows * (insert.rowSpacing * row) - frame.mapDirection(basePoint);
    return frame;
}

} // namespace

EntityWalk::EntityWalk(const Drawing& drawing, ArrayCopies copies, EntityVisitor& visitor)
    : m_drawing(drawing), m_styles(drawing), m_copies(copies), m_visitor(visitor), m_open(drawing.blocks.size(), 0),
      m_visitsLeft(mostVisits) {
}

void EntityWalk::run(const std::vector<Entity>& entities, const PlanMap& map, const Progress& progress) {
    constexpr size_t progressStep = 1024;
    for (size_t i = 0; i < entities.size(); ++i) {
        if (progress && i % progressStep == 0) {
            progress(static_cast<double>(i) / static_cast<double>(entities.size()));
        }
        visit(entities[i], m_styles.resolve(entities[i].attributes), map);
    }
    if (progress) {
        progress(1.0);
    }
}

void EntityWalk::visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) {
    if (m_visitsLeft == 0) {
        return;
    }
    --m_visitsLeft;
    if (!entity.attributes.visible) {
        return;
    }
    if (std::holds_alternative<Insert>(entity.geometry)) {
        visitReference(entity, style, map);
    } else if (m_styles.isPlotted(style.layer)) {
        m_visitor.visit(entity, style, mapOf(entity, map));
    }
}

/// A frozen layer takes the whole block away; one that is off or kept off paper takes only what lies on it.
void EntityWalk::visitReference(const Entity& entity, const EntityStyle& style, const PlanMap& map) {
    const auto& insert = std::get<Insert>(entity.geometry);
    const bool known = insert.block < m_drawing.blocks.size();
    if (!known || m_open[insert.block] || m_depth == deepestNesting || m_styles.isFrozen(style.layer)) {
        return;
    }
    const Block& block = m_drawing.blocks[insert.block];
    if (block.entities.empty()) {
        return;
    }
    const PlanMap planeMap = mapOf(entity, map);
    const int columns = std::max(insert.columns, 1);
    const int rows = std::max(insert.rows, 1);
    const int columnStep = m_copies == ArrayCopies::all ? 1 : std::max(columns - 1, 1);
    const int rowStep = m_copies == ArrayCopies::all ? 1 : std::max(rows - 1, 1);
    m_open[insert.block] = 1;
    ++m_depth;
    for (int64_t row = 0; row < rows && m_visitsLeft > 0; row += rowStep) {
        for (int64_t column = 0; column < columns && m_visitsLeft > 0; column += columnStep) {
            const Frame3 frame = frameOfCopy(insert, block.basePoint, static_cast<int>(column), static_cast<int>(row));
            visitCopy(block, style, planeMap.after(frame));
        }
    }
    --m_depth;
    m_open[insert.block] = 0;
}

void EntityWalk::visitCopy(const Block& block, const EntityStyle& reference, const PlanMap& map) {
    for (const Entity& entity : block.entities) {
        visit(entity, m_styles.resolve(entity.attributes, reference), map);
    }
}

} // namespace kelplot
