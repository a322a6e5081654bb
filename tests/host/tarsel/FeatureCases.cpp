// SPDX-License-Identifier: BSD-3-Clause
#include <map>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "ClipCases.h"

namespace {

const std::map<QString, gpc_op> operations = {
    {"intersection", GPC_INT}, {"union", GPC_UNION}, {"diff", GPC_DIFF}, {"difference", GPC_DIFF}, {"xor", GPC_XOR}};

QJsonObject readObject(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QJsonDocument::fromJson(file.readAll()).object();
}

Polygon::Contour readRing(const QJsonValue& ring) {
    Polygon::Contour contour;
    for (const auto& position : ring.toArray()) {
        contour.push_back({position.toArray().at(0).toDouble(), position.toArray().at(1).toDouble()});
    }
    return contour;
}

/// The polygons of a feature, each a list of rings.
std::vector<std::vector<Polygon::Contour>> readPolygons(const QJsonValue& feature) {
    const QJsonObject geometry = feature.toObject().value("geometry").toObject();
    const QJsonArray coordinates = geometry.value("coordinates").toArray();
    std::vector<std::vector<Polygon::Contour>> polygons;
    for (const QJsonValue& polygon : geometry.value("type") == "Polygon" ? QJsonArray{coordinates} : coordinates) {
        polygons.emplace_back();
        for (const auto& ring : polygon.toArray()) {
            polygons.back().push_back(readRing(ring));
        }
    }
    return polygons;
}

/// All rings under the even-odd rule, wherever they lie.
Polygon readEvenOdd(const QJsonValue& feature) {
    Polygon all;
    for (const auto& rings : readPolygons(feature)) {
        all.append({rings, {}});
    }
    return all;
}

/// Polygons united; in each the rings behind the first take away what they enclose, even where they leave it.
Polygon readUnited(const QJsonValue& feature) {
    Polygon united;
    for (const auto& rings : readPolygons(feature)) {
        Polygon polygon;
        for (size_t i = 0; i < rings.size(); ++i) {
            polygon = clip(i == 0 ? GPC_UNION : GPC_DIFF, polygon, {{rings[i]}, {}});
        }
        united = clip(GPC_UNION, united, polygon);
    }
    return united;
}

} // namespace

std::vector<ClipCase> readFeatureCases(const std::string& path) {
    const QString fileName = QString::fromStdString(path);
    const std::string name = QFileInfo(fileName).fileName().toStdString();
    const QJsonArray features = readObject(fileName).value("features").toArray();
    std::vector<Polygon> operands = {readEvenOdd(features.at(0)), readEvenOdd(features.at(1))};
    std::vector<ClipCase> cases;
    for (int i = 2; i < features.size(); ++i) {
        const auto op = features.at(i).toObject().value("properties").toObject().value("operation").toString();
        cases.push_back({name + " " + op.toStdString(),
                         operations.at(op),
                         operands,
                         ClipCase::Expectation::Area,
                         evenOddArea(readEvenOdd(features.at(i))),
                         {}});
    }
    if (cases.empty()) {
        cases.push_back({name, GPC_UNION, operands, ClipCase::Expectation::Consistency, 0, {}});
    }
    return cases;
}

std::vector<ClipCase> readDirectoryCases(const std::string& path) {
    const QDir directory(QString::fromStdString(path));
    std::vector<Polygon> operands;
    for (const auto& feature : readObject(directory.filePath("args.geojson")).value("features").toArray()) {
        operands.push_back(readUnited(feature));
    }
    std::vector<ClipCase> cases;
    for (const QString& file : directory.entryList({"*.geojson"}, QDir::Files, QDir::Name)) {
        const QString result = QFileInfo(file).baseName();
        if (result == "args") {
            continue;
        }
        const double area = evenOddArea(readUnited(readObject(directory.filePath(file))));
        for (const auto& [operation, op] : operations) {
            if (operation == result || (result == "all" && operation != "diff" && operation != "difference")) {
                cases.push_back({directory.dirName().toStdString() + " " + operation.toStdString(),
                                 op,
                                 operands,
                                 ClipCase::Expectation::Area,
                                 area,
                                 {}});
            }
        }
    }
    return cases;
}
