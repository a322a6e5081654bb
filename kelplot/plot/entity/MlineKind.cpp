// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>

#include "base/Angles.h"
#include "plot/entity/AreaFill.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

namespace {

/// Where a line passes a vertex; the vertex itself where the drawing does not say.
Vec3 pointOf(const MlineVertex& vertex, size_t line) {
    const bool stated = line < vertex.lines.size() && !vertex.lines[line].empty();
    return vertex.position + vertex.miter * (stated ? vertex.lines[line].front() : 0.0);
}

size_t lineCount(const Mline& mline) {
    return mline.vertices.front().lines.size();
}

/// The outermost two of the lines; nothing where there are fewer.
std::optional<std::pair<size_t, size_t>> outermost(const Mline& mline) {
    const auto& lines = mline.vertices.front().lines;
    if (lines.size() < 2) {
        return std::nullopt;
    }
    const auto offset = [](const std::vector<double>& line) {
        return line.empty() ? 0.0 : line.front();
    };
    const auto [low, high] = std::minmax_element(lines.begin(), lines.end(),
                                                 [&](const auto& a, const auto& b) { return offset(a) < offset(b); });
    return std::pair(static_cast<size_t>(low - lines.begin()), static_cast<size_t>(high - lines.begin()));
}

/// Draws the pieces of a line from a vertex to the next; a cut leaves gaps.
void drawPieces(const MlineVertex& from, const MlineVertex& to, size_t line, const PlanMap& map, Canvas& canvas) {
    const Vec3 start = pointOf(from, line);
    const Vec3 end = pointOf(to, line);
    static const std::vector<double> whole{0.0, 0.0};
    const bool isStated = line < from.lines.size() && from.lines[line].size() > 1;
    const std::vector<double>& stated = isStated ? from.lines[line] : whole;
    for (size_t i = 1; i < stated.size(); i += 2) {
        const Vec3 pieceEnd = i + 1 < stated.size() ? start + from.direction * stated[i + 1] : end;
        canvas.drawSegment(map.mapPoint(start + from.direction * stated[i]), map.mapPoint(pieceEnd));
    }
}

/// Calls `visit` with the two ends of each segment.
template <typename Visit>
void forEachSegment(const Mline& mline, Visit visit) {
    const auto& vertices = mline.vertices;
    for (size_t i = 0; i + 1 < vertices.size(); ++i) {
        visit(vertices[i], vertices[i + 1]);
    }
    if (mline.closed && vertices.size() > 2) {
        visit(vertices.back(), vertices.front());
    }
}

void drawAcross(const MlineVertex& vertex, size_t low, size_t high, const PlanMap& map, Canvas& canvas) {
    canvas.drawSegment(map.mapPoint(pointOf(vertex, low)), map.mapPoint(pointOf(vertex, high)));
}

/// A half circle over the ends of two lines, bulging the way of `outwards`.
void drawHalfCircle(const MlineVertex& vertex, size_t low, size_t high, const Vec3& outwards, const PlanMap& map,
                    Canvas& canvas) {
    const Vec3 a = pointOf(vertex, low);
    const Vec3 b = pointOf(vertex, high);
    const Vec3 half = (b - a) * 0.5;
    canvas.drawArc(
        {map.mapPoint(a + half), map.mapDirection(half), map.mapDirection(outwards * half.length()), 0.0, turn / 2.0});
}

void drawCap(const MlineStyle::Cap& cap, const Mline& mline, const MlineVertex& vertex, const Vec3& outwards,
             const PlanMap& map, Canvas& canvas) {
    const auto ends = outermost(mline);
    if (!ends) {
        return;
    }
    if (cap.line) {
        drawAcross(vertex, ends->first, ends->second, map, canvas);
    }
    if (cap.outerArc) {
        drawHalfCircle(vertex, ends->first, ends->second, outwards, map, canvas);
    }
    const size_t count = lineCount(mline);
    for (size_t i = 1; cap.innerArcs && i + 1 < count - i; ++i) {
        drawHalfCircle(vertex, i, count - 1 - i, outwards, map, canvas);
    }
}

void fillBetween(const Mline& mline, const PlacedEntity& place, const Colour& colour, PlotTools& tools) {
    const auto ends = outermost(mline);
    if (!ends) {
        return;
    }
    const EntityStyle look = withColour(place.style, colour, tools.drawing);
    forEachSegment(mline, [&](const MlineVertex& from, const MlineVertex& to) {
        const auto at = [&](const MlineVertex& vertex, size_t line) {
            return place.map.mapPoint(pointOf(vertex, line));
        };
        fillStyled({at(from, ends->first), at(to, ends->first), at(to, ends->second), at(from, ends->second)}, look,
                   tools);
    });
}

} // namespace

void draw(const Mline& mline, const PlacedEntity& place, PlotTools& tools) {
    static const MlineStyle plain;
    const auto& styles = tools.drawing.mlineStyles;
    const MlineStyle& style = mline.style < styles.size() ? styles[mline.style] : plain;
    if (style.fill) {
        fillBetween(mline, place, *style.fill, tools);
    }
    for (size_t line = 0; line < lineCount(mline); ++line) {
        EntityStyle look = place.style;
        if (line < style.lines.size()) {
            look = withColour(look, style.lines[line].colour, tools.drawing);
            const bool ownLineType = style.lines[line].lineType < tools.drawing.lineTypes.size();
            look.lineType = ownLineType ? style.lines[line].lineType : look.lineType;
        }
        tools.useLinePen(look);
        forEachSegment(mline, [&](const MlineVertex& from, const MlineVertex& to) {
            drawPieces(from, to, line, place.map, tools.canvas);
        });
    }
    tools.useLinePen(place.style);
    const auto ends = outermost(mline);
    if (style.joints && ends) {
        const size_t first = mline.closed ? 0 : 1;
        const size_t last = mline.vertices.size() - (mline.closed ? 0 : 1);
        for (size_t i = first; i < last; ++i) {
            drawAcross(mline.vertices[i], ends->first, ends->second, place.map, tools.canvas);
        }
    }
    if (!mline.closed && mline.startCap) {
        drawCap(style.start, mline, mline.vertices.front(), mline.vertices.front().direction * -1.0, place.map,
                tools.canvas);
    }
    if (!mline.closed && mline.endCap) {
        drawCap(style.end, mline, mline.vertices.back(), mline.vertices.back().direction, place.map, tools.canvas);
    }
}

Box2 boxOf(const Mline& mline, const MeasuredEntity& place) {
    Box2 box;
    for (const MlineVertex& vertex : mline.vertices) {
        for (size_t line = 0; line < lineCount(mline); ++line) {
            const Vec3 point = pointOf(vertex, line);
            box.add(boxOfPoints(&point, 1, place.map));
        }
    }
    return box;
}

} // namespace kelplot
