#include "reader/LibraryRecords.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>
#include <utility>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

constexpr int frozenFlag = 1;
constexpr int mostCopies = 32767;
constexpr int lineWeightCode = 370;

Vec3 point(double x, double y, double z) {
    return {saneReal(x), saneReal(y), saneReal(z)};
}

double radians(double degrees) {
    return radiansFromDegrees(saneReal(degrees));
}

} // namespace

LibraryRecords::LibraryRecords(DrawingBuilder& builder, std::function<void()> recordDone)
    : builder_(builder), recordDone_(std::move(recordDone)), variables_(builder) {
}

void LibraryRecords::begin(std::string_view type) {
    header_ = RecordHeader();
    flags_ = 0;
    plotted_ = true;
    hasFourthCorner_ = false;
    statesOpacity_ = false;
    dashes_.clear();
    if (type == "BLOCK") {
        // Until the library tells the block's name it has none.
        builder_.beginNamelessBlock();
    }
}

void LibraryRecords::take(const Group& group) {
    switch (group.code) {
    case 13:
        hasFourthCorner_ = true;
        break;
    case 70:
        flags_ = toInteger(group.value);
        break;
    case 290:
        plotted_ = toInteger(group.value) != 0;
        break;
    default:
        header_.take(group, builder_);
        break;
    }
}

void LibraryRecords::takeExtended(const Group& group) {
    constexpr int applicationCode = 1001;
    constexpr int integerCode = 1071;
    if (group.code == applicationCode) {
        statesOpacity_ = trimmed(group.value) == "AcCmTransparency";
    } else if (group.code == integerCode && statesOpacity_) {
        header_.attributes.opacity = opacityOf(toInteger(group.value));
    }
}

void LibraryRecords::endSection() {
    recordDone_();
}

void LibraryRecords::setVariableString(const std::string& key, const std::string& value, int code) {
    // The library hands over numbers of newer codes as text.
    if (code == lineWeightCode) {
        variables_.setInteger(key, toInteger(value));
    } else {
        variables_.setText(key, value);
    }
}

void LibraryRecords::setVariableInt(const std::string& key, int value, int) {
    variables_.setInteger(key, value);
}

void LibraryRecords::setVariableDouble(const std::string& key, double value, int) {
    variables_.setReal(key, value);
}

void LibraryRecords::addLayer(const DL_LayerData& data) {
    Layer& layer = builder_.drawing().layers[builder_.layer(trimmed(data.name))];
    const Colour colour = header_.colour();
    const bool coloured = colour.kind == Colour::Kind::index || colour.kind == Colour::Kind::trueColour;
    layer.colour = coloured ? colour : Layer().colour;
    layer.on = header_.colourNumber >= 0;
    layer.frozen = (flags_ & frozenFlag) != 0;
    // Definition points of dimensions are kept on a layer of this name, which never plots.
    layer.plotted = plotted_ && qstricmp(layer.name.c_str(), "Defpoints") != 0;
    layer.lineType =
        header_.attributes.lineType < builder_.drawing().lineTypes.size() ? header_.attributes.lineType : 0;
    layer.opacity = header_.attributes.opacity >= 0 ? header_.attributes.opacity : opaque;
    layer.lineWeight = header_.attributes.lineWeight >= 0 ? header_.attributes.lineWeight : lineWeightDefault;
}

void LibraryRecords::addLinetype(const DL_LinetypeData& data) {
    const uint32_t index = builder_.lineType(trimmed(data.name));
    if (index >= builder_.drawing().lineTypes.size()) {
        return;
    }
    // A pattern without length would never get along a line.
    const bool advances = std::any_of(dashes_.begin(), dashes_.end(), [](double dash) { return dash != 0.0; });
    builder_.drawing().lineTypes[index].pattern = advances ? dashes_ : std::vector<double>();
}

void LibraryRecords::addLinetypeDash(double length) {
    dashes_.push_back(saneReal(length));
}

void LibraryRecords::addBlock(const DL_BlockData& data) {
    builder_.beginBlock(trimmed(data.name), point(data.bpx, data.bpy, data.bpz));
}

void LibraryRecords::endBlock() {
    builder_.endBlock();
}

void LibraryRecords::addPoint(const DL_PointData& data) {
    builder_.addInWorld(header_, PointEntity{point(data.x, data.y, data.z)});
}

void LibraryRecords::addLine(const DL_LineData& data) {
    builder_.addInWorld(header_, Line{point(data.x1, data.y1, data.z1), point(data.x2, data.y2, data.z2)});
}

void LibraryRecords::addArc(const DL_ArcData& data) {
    const Arc arc{point(data.cx, data.cy, data.cz), saneReal(data.radius), radians(data.angle1), radians(data.angle2)};
    if (arc.radius > 0.0) {
        builder_.add(header_, arc);
    }
}

void LibraryRecords::addCircle(const DL_CircleData& data) {
    const Circle circle{point(data.cx, data.cy, data.cz), saneReal(data.radius)};
    if (circle.radius > 0.0) {
        builder_.add(header_, circle);
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
        builder_.add(header_, ellipse);
    }
}

void LibraryRecords::addInsert(const DL_InsertData& data) {
    Insert insert;
    insert.block = builder_.block(trimmed(data.name));
    insert.position = point(data.ipx, data.ipy, data.ipz);
    insert.scale = point(data.sx, data.sy, data.sz);
    insert.rotation = radians(data.angle);
    insert.columns = std::clamp(data.cols, 1, mostCopies);
    insert.rows = std::clamp(data.rows, 1, mostCopies);
    insert.columnSpacing = saneReal(data.colSp);
    insert.rowSpacing = saneReal(data.rowSp);
    builder_.add(header_, insert);
}

std::array<Vec3, 4> LibraryRecords::cornersOf(const DL_TraceData& data) const {
    std::array<Vec3, 4> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = point(data.x[i], data.y[i], data.z[i]);
    }
    if (!hasFourthCorner_) {
        corners[3] = corners[2];
    }
    return corners;
}

void LibraryRecords::addTrace(const DL_TraceData& data) {
    Solid solid{cornersOf(data)};
    // The file goes through the corners row by row.
    std::swap(solid.corners[2], solid.corners[3]);
    builder_.add(header_, solid);
}

void LibraryRecords::addSolid(const DL_SolidData& data) {
    addTrace(data);
}

void LibraryRecords::add3dFace(const DL_3dFaceData& data) {
    Face3d face;
    face.corners = cornersOf(data);
    for (std::size_t i = 0; i < face.edgeVisible.size(); ++i) {
        face.edgeVisible[i] = (flags_ & (1 << i)) == 0;
    }
    builder_.addInWorld(header_, face);
}

} // namespace kelplot
