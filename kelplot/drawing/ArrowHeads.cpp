// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/ArrowHeads.h"

#include <QByteArray>
#include <algorithm>
#include <iterator>

#include "base/Angles.h"

namespace kelplot {

namespace {

/// The shapes that arrow heads are made of. Circles are about the point of the arrow head.
struct Shape {
    enum class Kind { none, line, circle, disc, area, stroke, arc } kind = Kind::none;
    double a = 0.0, b = 0.0, c = 0.0, d = 0.0; ///< ends, corners of an area with (a, -b) too, or a radius
};
using Kind = Shape::Kind;

constexpr double half = 0.5;
constexpr double slope = 1.0 / 6.0;           ///< of the usual arrow head, to either side
constexpr double slope30 = 0.2679491924;      ///< half of 30 degrees
constexpr double triangleHalf = 0.5773502692; ///< half a side of an even triangle of height 1

constexpr Shape stem{Kind::line, 0.0, 0.0, -1.0, 0.0};
constexpr Shape shortStem{Kind::line, -half, 0.0, -1.0, 0.0};

struct Head {
    const char* name;
    bool lineReachesTip;
    bool isTick;
    std::vector<Shape> shapes;
};

std::vector<Head> makeHeads() {
    const auto wings = [](double x, double y) {
        return std::vector<Shape>{{Kind::line, x, y, 0.0, 0.0}, {Kind::line, 0.0, 0.0, x, -y}};
    };
    const auto with = [](std::vector<Shape> shapes, std::initializer_list<Shape> more) {
        shapes.insert(shapes.end(), more);
        return shapes;
    };
    const Shape back{Kind::line, -1.0, slope, -1.0, -slope};
    const std::vector<Shape> box = {{Kind::line, -half, -half, half, -half},
                                    {Kind::line, half, -half, half, half},
                                    {Kind::line, half, half, -half, half},
                                    {Kind::line, -half, half, -half, -half}};
    // Datum triangles stand with a side on the point.
    const std::vector<Shape> datum = {{Kind::line, 0.0, triangleHalf, 0.0, -triangleHalf},
                                      {Kind::line, 0.0, -triangleHalf, -1.0, 0.0},
                                      {Kind::line, -1.0, 0.0, 0.0, triangleHalf}};
    return {
        {"_ClosedFilled", false, false, {{Kind::area, -1.0, slope, 0.0, 0.0}}},
        {"_ClosedBlank", false, false, with(wings(-1.0, slope), {back})},
        {"_Closed", false, false, with(wings(-1.0, slope), {back, stem})},
        {"_Open", false, false, with(wings(-1.0, slope), {stem})},
        {"_Open30", false, false, with(wings(-1.0, slope30), {stem})},
        {"_Open90", false, false, with(wings(-half, half), {stem})},
        {"_Dot", false, false, {{Kind::disc, half}, shortStem}},
        {"_DotSmall", true, false, {{Kind::disc, 0.25}}},
        {"_DotBlank", false, false, {{Kind::circle, half}, shortStem}},
        {"_Small", true, false, {{Kind::circle, 0.25}}},
        {"_Origin", false, false, {{Kind::circle, half}, stem}},
        {"_Origin2", false, false, {{Kind::circle, half}, {Kind::circle, 0.25}, shortStem}},
        {"_BoxBlank", false, false, with(box, {shortStem})},
        {"_BoxFilled", false, false, {{Kind::area, -half, half, half, half}, shortStem}},
        {"_DatumBlank", false, false, datum},
        {"_DatumFilled", false, false, {{Kind::area, 0.0, triangleHalf, -1.0, 0.0}}},
        {"_ArchTick", true, true, {{Kind::stroke, -half, -half, half, half}}},
        {"_Oblique", true, true, {{Kind::line, -half, -half, half, half}}},
        {"_Integral",
         true,
         true,
         {{Kind::arc, 0.4454, -0.0900, 102.0, 168.0}, {Kind::arc, -0.4454, 0.0900, 282.0, 348.0}}},
        {"_None", true, true, {}},
    };
}

const std::vector<Head>& heads() {
    static const std::vector<Head> all = makeHeads();
    return all;
}

const Head* headOf(const std::string& block) {
    // The blocks of a drawing that another one refers to have the name of the reference before their own.
    const size_t divider = block.rfind('|');
    const std::string name = divider == std::string::npos ? block : block.substr(divider + 1);
    const auto found = std::find_if(heads().begin(), heads().end(),
                                    [&](const Head& head) { return qstricmp(head.name, name.c_str()) == 0; });
    return found == heads().end() ? nullptr : &*found;
}

/// A closed polyline of two half circles whose width fills them.
Polyline discOf(double radius) {
    Polyline disc;
    disc.closed = true;
    disc.vertices = {{{-radius / 2.0, 0.0, 0.0}, 1.0, radius, radius}, {{radius / 2.0, 0.0, 0.0}, 1.0, radius, radius}};
    return disc;
}

Geometry geometryOf(const Shape& shape) {
    constexpr double strokeWidth = 0.15;
    const Vec3 from{shape.a, shape.b, 0.0};
    const Vec3 to{shape.c, shape.d, 0.0};
    switch (shape.kind) {
    case Kind::circle:
        return Circle{{}, shape.a};
    case Kind::disc:
        return discOf(shape.a);
    case Kind::area:
        return Solid{{from, to, Vec3{shape.c, -shape.d, 0.0}, Vec3{shape.a, -shape.b, 0.0}}};
    case Kind::arc:
        return Arc{from, Vec2{shape.a, shape.b}.length(), radiansFromDegrees(shape.c), radiansFromDegrees(shape.d)};
    case Kind::stroke: {
        Polyline stroke;
        stroke.vertices = {{from, 0.0, strokeWidth, strokeWidth}, {to, 0.0, strokeWidth, strokeWidth}};
        return stroke;
    }
    case Kind::line:
    case Kind::none:
        break;
    }
    return Line{from, to};
}

} // namespace

bool lineReachesTip(const std::string& block) {
    const Head* const head = headOf(block);
    return head != nullptr && head->lineReachesTip;
}

bool isTick(const std::string& block) {
    const Head* const head = headOf(block);
    return head != nullptr && head->isTick;
}

std::optional<std::vector<Entity>> arrowHead(const std::string& block) {
    const Head* const head = headOf(block);
    if (head == nullptr) {
        return std::nullopt;
    }
    std::vector<Entity> entities;
    for (const Shape& shape : head->shapes) {
        Entity& entity = entities.emplace_back();
        entity.attributes.colour = {Colour::Kind::byBlock, 0};
        entity.attributes.lineType = lineTypeByBlock;
        entity.attributes.lineWeight = lineWeightByBlock;
        entity.geometry = geometryOf(shape);
    }
    return entities;
}

} // namespace kelplot
