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
constexpr int filledAlways = 1;

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

std::vector<Vec3> ProxyPainter::points(ByteStream& data, size_t count) const {
    std::vector<Vec3> result;
    result.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        result.push_back(m_canvas.mapped(data.point()));
    }
    return result;
}

void ProxyPainter::takeCircle(ByteStream& data) {
    const Vec3 centre = data.point();
    const double radius = data.real();
    const Vec3 normal = data.point();
    m_canvas.addArc(centre, normal, frameOfPlane(normal).x * radius, turn);
}

void ProxyPainter::takeCircleOfPoints(ByteStream& data) {
    const Vec3 first = data.point();
    const Vec3 second = data.point();
    m_canvas.addArcThrough(first, second, data.point(), true);
}

void ProxyPainter::takeArc(ByteStream& data) {
    const Vec3 centre = data.point();
    const double radius = data.real();
    const Vec3 normal = data.point();
    const Vec3 start = data.point();
    const double length = start.length();
    const double sweep = data.real();
    if (length > 0.0 && !data.failed()) {
        m_canvas.addArc(centre, normal, start * (radius / length), sweep);
    }
}

void ProxyPainter::takeArcOfPoints(ByteStream& data) {
    const Vec3 first = data.point();
    const Vec3 second = data.point();
    m_canvas.addArcThrough(first, second, data.point(), false);
}

void ProxyPainter::takePolyline(ByteStream& data) {
    m_canvas.addPath(points(data, data.count(pointSize)), false);
}

void ProxyPainter::takePolygon(ByteStream& data) {
    const std::vector<Vec3> corners = points(data, data.count(pointSize));
    if (m_filled && corners.size() > 2) {
        m_canvas.addArea(corners);
    } else {
        m_canvas.addPath(corners, true);
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
    m_canvas.addMesh(std::move(mesh));
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
            m_canvas.addArea(outline);
        }
        i += count + 1;
    }
    if (!m_filled && !mesh.edges.empty()) {
        mesh.vertices = corners;
        m_canvas.addMesh(std::move(mesh));
    }
}

/// Where it stands.
ProxyText ProxyPainter::itemIn(ByteStream& data) {
    ProxyText item;
    item.position = data.point();
    item.normal = data.point();
    item.direction = data.point();
    return item;
}

void ProxyPainter::takeSizes(ByteStream& data, ProxyText& item) {
    item.height = data.real();
    item.widthFactor = data.real();
    item.obliqueAngle = data.real();
}

void ProxyPainter::takeText(ByteStream& data) {
    ProxyText item = itemIn(data);
    takeSizes(data, item);
    item.text = m_builder.decoder().decode(data.text());
    m_canvas.addText(item);
}

void ProxyPainter::takeWideText(ByteStream& data) {
    ProxyText item = itemIn(data);
    takeSizes(data, item);
    item.text = data.wideText();
    m_canvas.addText(item);
}

void ProxyPainter::takeTextWithFont(ByteStream& data) {
    ProxyText item = itemIn(data);
    item.text = m_builder.decoder().decode(data.text());
    data.integer(); // its length
    data.integer(); // whether codes in it are to be taken as they stand
    takeSizes(data, item);
    m_canvas.addText(item);
}

void ProxyPainter::takeWideTextWithFont(ByteStream& data) {
    ProxyText item = itemIn(data);
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
    m_canvas.addText(item);
}

void ProxyPainter::addConstructionLine(ByteStream& data, bool bothWays) {
    const Vec3 start = m_canvas.mapped(data.point());
    const Vec3 through = m_canvas.mapped(data.point());
    if (!data.failed()) {
        m_canvas.addConstructionLine(start, through, bothWays);
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
    m_canvas.look().colourNumber = number == RecordHeader::colourByBlock ? m_whole.colourNumber : number;
    m_canvas.look().trueColour =
        number == RecordHeader::colourByBlock ? m_whole.trueColour : RecordHeader::noTrueColour;
}

void ProxyPainter::takeTrueColour(ByteStream& data) {
    const RecordHeader coloured = withColour(m_whole, data.integer());
    m_canvas.look().colourNumber = coloured.colourNumber;
    m_canvas.look().trueColour = coloured.trueColour;
}

void ProxyPainter::takeFill(ByteStream& data) {
    m_filled = data.integer() == filledAlways;
}

void ProxyPainter::takeLineWeight(ByteStream& data) {
    const LineWeight weight = lineWeightOf(data.integer());
    m_canvas.look().attributes.lineWeight = weight == lineWeightByBlock ? m_whole.attributes.lineWeight : weight;
}

void ProxyPainter::pushMap(ByteStream& data) {
    ProxyMap map{};
    for (double& value : map) {
        value = data.real();
    }
    if (!data.failed()) {
        m_canvas.pushMap(map);
    }
}

void ProxyPainter::popMap(ByteStream& /*data*/) {
    m_canvas.popMap();
}

} // namespace kelplot
