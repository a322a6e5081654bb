// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/LibraryRecords.h"

#include "base/Angles.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>
#include <utility>

#include "reader/AttachedData.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

constexpr int frozenFlag = 1;
constexpr int externalFlag = 4;
constexpr int overlayFlag = 8;
constexpr int mostCopies = 32767;
constexpr int lineWeightCode = 370;

Vec3 point(double x, double y, double z) {
    return {saneReal(x), saneReal(y), saneReal(z)};
}

double radians(double degrees) {
    return radiansFromDegrees(saneReal(degrees));
}

/// Tells whether a layer holds what only helps to draw: the definition points of dimensions, or the constraints that
/// shapes obey.
bool neverPlots(const std::string& layer) {
    constexpr const char* names[] = {"Defpoints", "*ADSK_CONSTRAINTS", "ADSK_CONSTRAINTS"};
    return std::any_of(std::begin(names), std::end(names),
                       [&](const char* name) { return qstricmp(layer.c_str(), name) == 0; });
}

} // namespace

LibraryRecords::LibraryRecords(DrawingBuilder& builder, std::function<void()> recordDone)
    : m_builder(builder), m_recordDone(std::move(recordDone)), m_variables(builder) {
}

void LibraryRecords::begin(std::string_view type) {
    m_header = RecordHeader();
    m_flags = 0;
    m_path.clear();
    m_plotted = true;
    m_hasFourthCorner = false;
    m_statesOpacity = false;
    if (type == "BLOCK") {
        // Until the library tells the block's name it has none.
        m_builder.beginNamelessBlock();
    }
}

void LibraryRecords::take(const Group& group) {
    switch (group.code) {
    case 1:
        m_path = trimmed(group.value);
        break;
    case 13:
        m_hasFourthCorner = true;
        break;
    case 70:
        m_flags = toInteger(group.value);
        break;
    case 290:
        m_plotted = toInteger(group.value) != 0;
        break;
    default:
        m_header.take(group, m_builder);
        break;
    }
}

void LibraryRecords::takeExtended(const Group& group) {
    if (group.code == attached::application) {
        m_statesOpacity = trimmed(group.value) == "AcCmTransparency";
    } else if (group.code == attached::integer && m_statesOpacity) {
        m_header.attributes.opacity = opacityOf(toInteger(group.value));
    }
}

void LibraryRecords::endSection() {
    m_recordDone();
}

void LibraryRecords::setVariableString(const std::string& key, const std::string& value, int code) {
    // The library hands over numbers of newer codes as text.
    const bool isSmallNumber = code >= 280 && code < 300;
    if (code == lineWeightCode || isSmallNumber) {
        m_variables.setInteger(key, toInteger(value));
    } else {
        m_variables.setText(key, value);
    }
}

void LibraryRecords::setVariableInt(const std::string& key, int value, int) {
    m_variables.setInteger(key, value);
}

void LibraryRecords::setVariableDouble(const std::string& key, double value, int) {
    m_variables.setReal(key, value);
}

void LibraryRecords::setVariableVector(const std::string& key, double x, double y, double z, int) {
    m_variables.setPoint(key, point(x, y, z));
}

void LibraryRecords::addLayer(const DL_LayerData& data) {
    const uint32_t index = m_builder.layer(trimmed(data.name));
    m_builder.handles().nameLayer(m_header.handle, index);
    if (m_header.extensionDictionary != 0) {
        m_builder.extendLayer(index, m_header.extensionDictionary);
    }
    Layer& layer = m_builder.drawing().layers[index];
    const Colour colour = m_header.colour();
    const bool coloured = colour.kind == Colour::Kind::index || colour.kind == Colour::Kind::trueColour;
    layer.colour = coloured ? colour : Layer().colour;
    layer.on = m_header.colourNumber >= 0;
    layer.frozen = (m_flags & frozenFlag) != 0;
    layer.plotted = m_plotted && !neverPlots(layer.name);
    layer.lineType =
        m_header.attributes.lineType < m_builder.drawing().lineTypes.size() ? m_header.attributes.lineType : 0;
    layer.opacity = m_header.attributes.opacity >= 0 ? m_header.attributes.opacity : opaque;
    const PlotStyleIndex plotStyle = m_header.attributes.plotStyle;
    layer.plotStyle = plotStyle < m_builder.drawing().plotStyles.size() ? plotStyle : Layer().plotStyle;
    layer.lineWeight = m_header.attributes.lineWeight >= 0 ? m_header.attributes.lineWeight : lineWeightDefault;
}

void LibraryRecords::addBlock(const DL_BlockData& data) {
    const bool isExternal = (m_flags & (externalFlag | overlayFlag)) != 0;
    const ExternalDrawing external{isExternal ? m_path : std::string(), (m_flags & overlayFlag) != 0};
    m_builder.beginBlock(trimmed(data.name), point(data.bpx, data.bpy, data.bpz), external);
}

void LibraryRecords::endBlock() {
    m_builder.endBlock();
}

void LibraryRecords::addPoint(const DL_PointData& data) {
    m_builder.addInWorld(m_header, PointEntity{point(data.x, data.y, data.z)});
}

void LibraryRecords::addLine(const DL_LineData& data) {
    m_builder.addInWorld(m_header, Line{point(data.x1, data.y1, data.z1), point(data.x2, data.y2, data.z2)});
}

void LibraryRecords::addArc(const DL_ArcData& data) {
    const Arc arc{point(data.cx, data.cy, data.cz), saneReal(data.radius), radians(data.angle1), radians(data.angle2)};
    if (arc.radius > 0.0) {
        m_builder.add(m_header, arc);
    } else {
        m_builder.addUnplotted(m_header, "ARC without a radius");
    }
}

void LibraryRecords::addCircle(const DL_CircleData& data) {
    const Circle circle{point(data.cx, data.cy, data.cz), saneReal(data.radius)};
    if (circle.radius > 0.0) {
        m_builder.add(m_header, circle);
    } else {
        m_builder.addUnplotted(m_header, "CIRCLE without a radius");
    }
}

void LibraryRecords::addEllipse(const DL_EllipseData& data) {
    Ellipse ellipse;
    ellipse.center = point(data.cx, data.cy, data.cz);
    ellipse.majorAxis = point(data.mx, data.my, data.mz);
    ellipse.ratio = std::abs(saneReal(data.ratio));
    ellipse.startParam = saneReal(data.angle1);
    ellipse.endParam = saneReal(data.angle2);
    if (!(ellipse.majorAxis == Vec3())) {
        m_builder.add(m_header, ellipse);
    } else {
        m_builder.addUnplotted(m_header, "ELLIPSE without an axis");
    }
}

void LibraryRecords::addInsert(const DL_InsertData& data) {
    Insert insert;
    insert.block = m_builder.block(trimmed(data.name));
    insert.position = point(data.ipx, data.ipy, data.ipz);
    insert.scale = point(data.sx, data.sy, data.sz);
    insert.rotation = radians(data.angle);
    insert.columns = std::clamp(data.cols, 1, mostCopies);
    insert.rows = std::clamp(data.rows, 1, mostCopies);
    insert.columnSpacing = saneReal(data.colSp);
    insert.rowSpacing = saneReal(data.rowSp);
    m_builder.addReference(m_header, insert);
}

std::array<Vec3, 4> LibraryRecords::cornersOf(const DL_TraceData& data) const {
    std::array<Vec3, 4> corners;
    for (size_t i = 0; i < corners.size(); ++i) {
        corners[i] = point(data.x[i], data.y[i], data.z[i]);
    }
    if (!m_hasFourthCorner) {
        corners[3] = corners[2];
    }
    return corners;
}

void LibraryRecords::addTrace(const DL_TraceData& data) {
    Solid solid{cornersOf(data)};
    // The file goes through the corners row by row.
    std::swap(solid.corners[2], solid.corners[3]);
    m_builder.add(m_header, solid);
}

void LibraryRecords::addSolid(const DL_SolidData& data) {
    addTrace(data);
}

void LibraryRecords::add3dFace(const DL_3dFaceData& data) {
    Face3d face;
    face.corners = cornersOf(data);
    for (size_t i = 0; i < face.edgeVisible.size(); ++i) {
        face.edgeVisible[i] = (m_flags & (1 << i)) == 0;
    }
    m_builder.addInWorld(m_header, face);
}

} // namespace kelplot
