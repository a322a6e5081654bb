// SPDX-License-Identifier: BSD-3-Clause
#include <map>
#include <optional>

#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include "ClipCases.h"

namespace {

const std::map<QString, gpc_op> operations = {
    {"intersection", GPC_INT}, {"union", GPC_UNION}, {"difference", GPC_DIFF}, {"symdifference", GPC_XOR}};

/// The areas of a geometry in text form; points and lines have none. Nested parentheses hold one ring each.
Polygon readText(const QString& text) {
    static const QRegularExpression areaExpression(R"((MULTI)?POLYGON\s*(\((?:[^()]|\([^()]*\)|)"
                                                   R"(\((?:[^()]|\([^()]*\))*\))*\)))");
    static const QRegularExpression ringExpression(R"(\(([^()]+)\))");
    static const QRegularExpression vertexExpression(R"(([-+.\deE]+)\s+([-+.\deE]+)[^,]*)");
    Polygon polygon;
    for (auto areas = areaExpression.globalMatch(text); areas.hasNext();) {
        for (auto rings = ringExpression.globalMatch(areas.next().captured(2)); rings.hasNext();) {
            Polygon::Contour contour;
            for (auto vertices = vertexExpression.globalMatch(rings.next().captured(1)); vertices.hasNext();) {
                const auto vertex = vertices.next();
                contour.push_back({vertex.captured(1).toDouble(), vertex.captured(2).toDouble()});
            }
            polygon.contours.push_back(contour);
        }
    }
    return polygon;
}

/// A geometry as a binary record: polygons, alone or nested in collections.
void readRecord(QDataStream& stream, Polygon& polygon) {
    constexpr quint32 hasReference = 0x20000000;
    quint8 isLittle = 0;
    quint32 type = 0;
    quint32 reference = 0;
    quint32 parts = 0;
    stream >> isLittle;
    stream.setByteOrder(isLittle ? QDataStream::LittleEndian : QDataStream::BigEndian);
    stream >> type;
    if (type & hasReference) {
        stream >> reference;
    }
    stream >> parts;
    for (quint32 part = 0; part < parts && stream.status() == QDataStream::Ok; ++part) {
        if ((type & 0xFF) != 3) {
            readRecord(stream, polygon);
            continue;
        }
        quint32 count = 0;
        stream >> count;
        Polygon::Contour contour;
        for (gpc_vertex vertex{}; contour.size() < count && stream.status() == QDataStream::Ok;) {
            stream >> vertex.x >> vertex.y;
            contour.push_back(vertex);
        }
        polygon.contours.push_back(contour);
    }
}

Polygon readGeometry(const QString& text) {
    const QByteArray bytes = QByteArray::fromHex(text.simplified().toLatin1());
    if (!text.trimmed().startsWith('0')) {
        return readText(text);
    }
    Polygon polygon;
    QDataStream stream(bytes);
    readRecord(stream, polygon);
    return polygon;
}

/// Whether a geometry holds areas and nothing else.
bool isPolygonal(const QString& text) {
    static const QRegularExpression other("POINT|LINE|RING|COLLECTION");
    return !text.contains(other);
}

struct Geometries {
    QString a;
    QString b;
};

std::optional<ClipCase> makeCase(const QString& operation, const QString& expected, const Geometries& geometries,
                                 bool rounded) {
    if (!isPolygonal(geometries.a) || !isPolygonal(geometries.b)) {
        return std::nullopt;
    }
    // The suffixes name the algorithm that the file was made for; SR is one that rounds.
    const bool snaps = operation.endsWith("SR");
    QString plain = operation.toLower();
    plain.remove(QRegularExpression("(sr|ng)$"));
    const bool isAreaTest = plain == "overlayareatest";
    if (!isAreaTest && operations.count(plain) == 0) {
        return std::nullopt;
    }
    ClipCase result{
        "", GPC_UNION, {readGeometry(geometries.a), readGeometry(geometries.b)}, ClipCase::Expectation::Consistency,
        0,  {}};
    if (!isAreaTest && !expected.trimmed().isEmpty()) {
        result.op = operations.at(plain);
        result.area = evenOddArea(readGeometry(expected));
        result.expectation = rounded || snaps ? ClipCase::Expectation::RoundedArea : ClipCase::Expectation::Area;
    }
    return result;
}

} // namespace

std::vector<ClipCase> readXmlCases(const std::string& path) {
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    std::vector<ClipCase> cases;
    Geometries geometries;
    bool rounded = false;
    int number = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QString element = xml.name().toString();
        if (element == "precisionModel") {
            rounded = xml.attributes().hasAttribute("scale");
        } else if (element == "case") {
            ++number;
            geometries = {};
        } else if (element == "a") {
            geometries.a = xml.readElementText();
        } else if (element == "b") {
            geometries.b = xml.readElementText();
        } else if (element == "op") {
            const QString operation = xml.attributes().value("name").toString();
            Geometries ordered = geometries;
            if (xml.attributes().value("arg1").toString().toLower() == "b") {
                std::swap(ordered.a, ordered.b);
            }
            auto read = makeCase(operation, xml.readElementText(), ordered, rounded);
            if (read) {
                read->name = QFileInfo(file).fileName().toStdString() + " " + std::to_string(number) + " " +
                             operation.toStdString();
                cases.push_back(std::move(*read));
            }
        }
    }
    return cases;
}
