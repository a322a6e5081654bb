// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/proxy/ProxyPainter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <utility>

#include "base/Angles.h"
#include "geometry/PlanMap.h"

namespace kelplot {

namespace {

constexpr size_t pointSize = 24; ///< bytes
constexpr size_t indexSize = 4;
constexpr int bottomLeft = 7; ///< where a text hangs on its position
constexpr int filledAlways = 1;
constexpr size_t mostMaps = 100;

double dotOf(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// A filled area of any number of corners, as it looks from above.
Geometry areaOf(const std::vector<Vec3>& corners) {
    if (corners.size() <= 4) {
        return Solid{{corners[0], corners[1], corners[2], corners.back()}};
    }
    Hatch hatch;
    hatch.solid = true;
    hatch.elevation = corners.front().z;
    HatchLoop& loop = hatch.loops.emplace_back();
    for (const Vec3& corner : corners) {
        loop.polyline.push_back(PolylineVertex{{corner.x, corner.y, 0.0}});
    }
    return hatch;
}

} // namespace

const ProxyPainter::Row ProxyPainter::rows[] = {
    {1, nullptr}, // extents
    {2, &ProxyPainter::takeCircle},
    {3, &ProxyPainter::takeCircleOfPoints},
    {4, &ProxyPainter::takeArc},
    {5, &ProxyPainter::takeArcOfPoints},
    {6, &ProxyPainter::takePolyline},
    {7, &ProxyPainter::takePolygon},
    {8, &ProxyPainter::takeMesh},
    {9, &ProxyPainter::takeShell},
    {10, &ProxyPainter::takeText},
    {11, &ProxyPainter::takeTextWithFont},
    {12, &ProxyPainter::takeLine},
    {13, &ProxyPainter::takeRay},
    {14, &ProxyPainter::takeColour},
    {16, nullptr}, // layer, by a number that the drawing does not tell
    {18, nullptr}, // line type, likewise
    {19, nullptr}, // marker
    {20, &ProxyPainter::takeFill},
    {22, &ProxyPainter::takeTrueColour},
    {23, &ProxyPainter::takeLineWeight},
    {24, nullptr}, // line type scale
    {25, nullptr}, // thickness
    {26, nullptr}, // plot style
    {29, &ProxyPainter::pushMap},
    {30, &ProxyPainter::pushMap},
    {31, &ProxyPainter::popMap},
    {32, &ProxyPainter::takePolyline}, // with a normal behind its points
    {34, nullptr},                     // material
    {35, nullptr},                     // mapper
    {36, &ProxyPainter::takeWideText},
    {38, &ProxyPainter::takeWideTextWithFont},
    {51, nullptr}, // nothing that shows
};

bool ProxyPainter::take(int32_t kind, ByteStream& data) {
    const Row* const row =
        std::find_if(std::begin(rows), std::end(rows), [kind](const Row& each) { return each.kind == kind; });
    if (row == std::end(rows)) {
        return false;
    }
    if (row->handler != nullptr) {
        (this->*row->handler)(data);
    }
    return !data.failed();
}

Vec3 ProxyPainter::mappedDirection(const Vec3& v) const {
    if (m_maps.empty()) {
        return v;
    }
    const Map& m = m_maps.back();
    return {dotOf({m[0], m[1], m[2]}, v), dotOf({m[4], m[5], m[6]}, v), dotOf({m[8], m[9], m[10]}, v)};
}

Vec3 ProxyPainter::mapped(const Vec3& p) const {
    return m_maps.empty() ? p : mappedDirection(p) + Vec3{m_maps.back()[3], m_maps.back()[7], m_maps.back()[11]};
}

std::vector<Vec3> ProxyPainter::points(ByteStream& data, size_t count) const {
    std::vector<Vec3> result;
    result.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        result.push_back(mapped(data.point()));
    }
    return result;
}

void ProxyPainter::add(Geometry&& geometry, const Vec3& extrusion) {
    m_look.extrusion = extrusion;
    m_builder.add(m_look, std::move(geometry));
    m_hasDrawn = true;
}

void ProxyPainter::addPath(const std::vector<Vec3>& points, bool closed) {
    if (points.size() < 2) {
        return;
    }
    Polyline path;
    path.spatial = true;
    path.closed = closed;
    for (const Vec3& point : points) {
        path.vertices.push_back(PolylineVertex{point});
    }
    add(std::move(path), {0.0, 0.0, 1.0});
}

/// @param start  from the centre
void ProxyPainter::addArc(const Vec3& centre, const Vec3& normal, const Vec3& start, double sweep) {
    const double radius = start.length();
    if (!(radius > 0.0)) {
        return;
    }
    const bool isWhole = std::abs(sweep) >= turn;
    if (m_maps.empty()) {
        const Vec3 inPlane = toPlane(start, normal);
        const double angle = std::atan2(inPlane.y, inPlane.x);
        const Vec3 middle = toPlane(centre, normal);
        if (isWhole) {
            add(Circle{middle, radius}, normal);
        } else {
            add(Arc{middle, radius, std::min(angle, angle + sweep), std::max(angle, angle + sweep)}, normal);
        }
        return;
    }
    constexpr int stepsOfTurn = 128;
    const Vec3 across = cross(frameOfPlane(normal).z, start);
    const int steps = std::max(2, static_cast<int>(std::min(std::abs(sweep) / turn, 1.0) * stepsOfTurn));
    std::vector<Vec3> path;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (isWhole ? turn : sweep) * i / steps;
        path.push_back(mapped(centre + start * std::cos(angle) + across * std::sin(angle)));
    }
    addPath(path, false);
}

/// A circle through three points, or an arc from the first of them to the last.
void ProxyPainter::addArcThrough(const Vec3& first, const Vec3& second, const Vec3& third, bool whole) {
    const Vec3 a = second - first;
    const Vec3 b = third - first;
    const Vec3 normal = cross(a, b);
    const double square = dotOf(normal, normal);
    if (!(square > 0.0)) {
        return;
    }
    const Vec3 toCentre = (cross(normal, a) * dotOf(b, b) + cross(b, normal) * dotOf(a, a)) * (0.5 / square);
    const Vec3 centre = first + toCentre;
    const Vec3 start = first - centre;
    const Vec3 end = third - centre;
    const Vec3 up = normal * (1.0 / std::sqrt(square));
    const double angle = std::atan2(dotOf(cross(start, end), up), dotOf(start, end));
    addArc(centre, normal, start, whole ? turn : (angle > 0.0 ? angle : angle + turn));
}

void ProxyPainter::takeCircle(ByteStream& data) {
    const Vec3 centre = data.point();
    const double radius = data.real();
    const Vec3 normal = data.point();
    addArc(centre, normal, frameOfPlane(normal).x * radius, turn);
}

void ProxyPainter::takeCircleOfPoints(ByteStream& data) {
    const Vec3 first = data.point();
    const Vec3 second = data.point();
    addArcThrough(first, second, data.point(), true);
}

void ProxyPainter::takeArc(ByteStream& data) {
    const Vec3 centre = data.point();
    const double radius = data.real();
    const Vec3 normal = data.point();
    const Vec3 start = data.point();
    const double length = start.length();
    const double sweep = data.real();
    if (length > 0.0 && !data.failed()) {
        addArc(centre, normal, start * (radius / length), sweep);
    }
}

void ProxyPainter::takeArcOfPoints(ByteStream& data) {
    const Vec3 first = data.point();
    const Vec3 second = data.point();
    addArcThrough(first, second, data.point(), false);
}

void ProxyPainter::takePolyline(ByteStream& data) {
    addPath(points(data, data.count(pointSize)), false);
}

void ProxyPainter::takePolygon(ByteStream& data) {
    const std::vector<Vec3> corners = points(data, data.count(pointSize));
    if (m_filled && corners.size() > 2) {
        add(areaOf(corners), {0.0, 0.0, 1.0});
    } else {
        addPath(corners, true);
    }
}

void ProxyPainter::takeMesh(ByteStream& data) {
    const int32_t rowCount = data.integer();
    const int32_t columnCount = data.integer();
    const auto most = static_cast<int64_t>(data.left() / pointSize);
    if (rowCount < 1 || columnCount < 1 || rowCount > most || columnCount > most / rowCount) {
        return;
    }
    const auto height = static_cast<uint32_t>(rowCount);
    const auto width = static_cast<uint32_t>(columnCount);
    Mesh mesh;
    mesh.vertices = points(data, size_t{height} * width);
    for (uint32_t row = 0; row < height; ++row) {
        for (uint32_t column = 0; column < width; ++column) {
            const uint32_t at = row * width + column;
            if (column + 1 < width) {
                mesh.edges.push_back({at, at + 1});
            }
            if (row + 1 < height) {
                mesh.edges.push_back({at, at + width});
            }
        }
    }
    add(std::move(mesh), {0.0, 0.0, 1.0});
}

void ProxyPainter::takeShell(ByteStream& data) {
    const std::vector<Vec3> corners = points(data, data.count(pointSize));
    const size_t entries = data.count(indexSize);
    Mesh mesh;
    for (size_t i = 0; i < entries;) {
        // A negative number of corners belongs to a hole.
        const int32_t stated = data.integer();
        const size_t count = std::min<size_t>(static_cast<size_t>(std::abs(int64_t{stated})), entries - i - 1);
        std::vector<uint32_t> face;
        for (size_t corner = 0; corner < count; ++corner) {
            const int32_t index = data.integer();
            if (index >= 0 && static_cast<size_t>(index) < corners.size()) {
                face.push_back(static_cast<uint32_t>(index));
            }
        }
        std::vector<Vec3> outline;
        for (size_t corner = 0; corner < face.size(); ++corner) {
            outline.push_back(corners[face[corner]]);
            mesh.edges.push_back({face[corner], face[(corner + 1) % face.size()]});
        }
        if (m_filled && stated > 0 && outline.size() > 2) {
            add(areaOf(outline), {0.0, 0.0, 1.0});
        }
        i += count + 1;
    }
    if (!m_filled && !mesh.edges.empty()) {
        mesh.vertices = corners;
        add(std::move(mesh), {0.0, 0.0, 1.0});
    }
}

void ProxyPainter::addText(const TextItem& item) {
    const Vec3 direction = mappedDirection(item.direction);
    const double scale = item.direction.length() > 0.0 ? direction.length() / item.direction.length() : 0.0;
    if (item.text.empty() || !(item.height * scale > 0.0)) {
        return;
    }
    MText text;
    text.height = item.height * scale;
    text.attachment = bottomLeft;
    text.position = toPlane(mapped(item.position), item.normal);
    const Vec3 along = toPlane(direction, item.normal);
    text.rotation = std::atan2(along.y, along.x);
    CharacterFormat format;
    format.height = text.height;
    format.widthFactor = item.widthFactor > 0.0 ? item.widthFactor : 1.0;
    format.obliqueAngle = item.obliqueAngle;
    if (!item.font.name.empty()) {
        format.font = item.font;
    }
    Paragraph& paragraph = text.paragraphs.emplace_back();
    paragraph.format = format;
    paragraph.pieces.emplace_back(TextSpan{item.text, format});
    add(std::move(text), item.normal);
}

/// Where it stands.
ProxyPainter::TextItem ProxyPainter::itemIn(ByteStream& data) {
    TextItem item;
    item.position = data.point();
    item.normal = data.point();
    item.direction = data.point();
    return item;
}

void ProxyPainter::takeSizes(ByteStream& data, TextItem& item) {
    item.height = data.real();
    item.widthFactor = data.real();
    item.obliqueAngle = data.real();
}

void ProxyPainter::takeText(ByteStream& data) {
    TextItem item = itemIn(data);
    takeSizes(data, item);
    item.text = m_builder.decoder().decode(data.text());
    addText(item);
}

void ProxyPainter::takeWideText(ByteStream& data) {
    TextItem item = itemIn(data);
    takeSizes(data, item);
    item.text = data.wideText();
    addText(item);
}

void ProxyPainter::takeTextWithFont(ByteStream& data) {
    TextItem item = itemIn(data);
    item.text = m_builder.decoder().decode(data.text());
    data.integer(); // its length
    data.integer(); // whether codes in it are to be taken as they stand
    takeSizes(data, item);
    addText(item);
}

void ProxyPainter::takeWideTextWithFont(ByteStream& data) {
    TextItem item = itemIn(data);
    item.text = data.wideText();
    data.integer(); // its length
    data.integer(); // whether codes in it are to be taken as they stand
    takeSizes(data, item);
    data.real(); // the distance between characters
    constexpr int ofMirrorsAndLines = 5;
    for (int i = 0; i < ofMirrorsAndLines; ++i) {
        data.integer();
    }
    item.font.bold = data.integer() != 0;
    item.font.italic = data.integer() != 0;
    data.integer(); // character set
    data.integer(); // pitch
    item.font.name = data.wideText();
    addText(item);
}

void ProxyPainter::addConstructionLine(ByteStream& data, bool bothWays) {
    const Vec3 start = mapped(data.point());
    const Vec3 through = mapped(data.point());
    if (!data.failed()) {
        add(ConstructionLine{start, through - start, bothWays}, {0.0, 0.0, 1.0});
    }
}

void ProxyPainter::takeLine(ByteStream& data) {
    addConstructionLine(data, true);
}

void ProxyPainter::takeRay(ByteStream& data) {
    addConstructionLine(data, false);
}

void ProxyPainter::takeColour(ByteStream& data) {
    const int32_t number = data.integer();
    m_look.colourNumber = number == RecordHeader::colourByBlock ? m_whole.colourNumber : number;
    m_look.trueColour = number == RecordHeader::colourByBlock ? m_whole.trueColour : RecordHeader::noTrueColour;
}

void ProxyPainter::takeTrueColour(ByteStream& data) {
    const RecordHeader coloured = withColour(m_whole, data.integer());
    m_look.colourNumber = coloured.colourNumber;
    m_look.trueColour = coloured.trueColour;
}

void ProxyPainter::takeFill(ByteStream& data) {
    m_filled = data.integer() == filledAlways;
}

void ProxyPainter::takeLineWeight(ByteStream& data) {
    const LineWeight weight = lineWeightOf(data.integer());
    m_look.attributes.lineWeight = weight == lineWeightByBlock ? m_whole.attributes.lineWeight : weight;
}

/// The maps of shapes in shapes apply one after the other.
void ProxyPainter::pushMap(ByteStream& data) {
    Map own{};
    for (double& value : own) {
        value = data.real();
    }
    if (data.failed() || m_maps.size() >= mostMaps) {
        return;
    }
    const Vec3 x = mappedDirection({own[0], own[4], own[8]});
    const Vec3 y = mappedDirection({own[1], own[5], own[9]});
    const Vec3 z = mappedDirection({own[2], own[6], own[10]});
    const Vec3 origin = mapped({own[3], own[7], own[11]});
    m_maps.push_back({x.x, y.x, z.x, origin.x, x.y, y.y, z.y, origin.y, x.z, y.z, z.z, origin.z});
}

void ProxyPainter::popMap(ByteStream&) {
    if (!m_maps.empty()) {
        m_maps.pop_back();
    }
}

} // namespace kelplot
