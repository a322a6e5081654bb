// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "Polygon.h"

namespace {

/// One operation whose area is stated, in whole units.
struct ClipCase {
    std::string caption, rule;
    gpc_op op;
    double area; ///< negative: not stated
    Polygon operands[2];
};

/// "x,y x,y …" with blanks or commas between all numbers.
Polygon::Contour readVertices(std::string line) {
    std::replace(line.begin(), line.end(), ',', ' ');
    std::istringstream numbers(line);
    Polygon::Contour contour;
    for (gpc_vertex vertex{}; numbers >> vertex.x >> vertex.y;) {
        contour.push_back(vertex);
    }
    return contour;
}

/// Lines "CAPTION:", "CLIPTYPE:", "FILLRULE:", "SOL_AREA:", then vertices under "SUBJECTS" and "CLIPS".
std::vector<ClipCase> readCases(std::istream& file) {
    const std::map<std::string, gpc_op> operations = {
        {"INTERSECTION", GPC_INT}, {"UNION", GPC_UNION}, {"DIFFERENCE", GPC_DIFF}, {"XOR", GPC_XOR}};
    std::vector<ClipCase> cases;
    Polygon* target = nullptr;
    for (std::string line; std::getline(file, line);) {
        line.erase(line.find_last_not_of(" \r") + 1);
        const size_t colon = line.find(": ");
        const std::string key = line.substr(0, colon);
        const std::string value = colon == std::string::npos ? "" : line.substr(colon + 2);
        if (key == "CAPTION") {
            cases.push_back({value, "", GPC_UNION, -1, {}});
            target = nullptr;
        } else if (key == "CLIPTYPE") {
            cases.back().op = operations.at(value);
        } else if (key == "FILLRULE") {
            cases.back().rule = value;
        } else if (key == "SOL_AREA") {
            cases.back().area = std::stod(value);
        } else if (key == "SUBJECTS" || key == "CLIPS") {
            target = &cases.back().operands[key == "CLIPS" ? 1 : 0];
        } else if (target != nullptr && !line.empty()) {
            target->contours.push_back(readVertices(line));
        }
    }
    return cases;
}

// Every crossing may have moved by half a unit, and the edges with it.
double halfPerimeter(const Polygon& polygon) {
    double sum = 0;
    for (const Polygon::Contour& contour : polygon.contours) {
        for (size_t i = 0; i < contour.size(); ++i) {
            const gpc_vertex& next = contour[(i + 1) % contour.size()];
            sum += std::hypot(next.x - contour[i].x, next.y - contour[i].y) / 2;
        }
    }
    return sum;
}

TEST(SampleClips, HaveTheStatedAreas) {
    std::ifstream file(KELDRIVER_SHARED_DATA "/clip/clipper2_polygons.txt");
    if (!file) {
        GTEST_SKIP() << "no sample clips in " KELDRIVER_SHARED_DATA;
    }
    int checked = 0;
    for (const ClipCase& each : readCases(file)) {
        if (each.rule == "EVENODD" && each.area >= 0) { // the one rule that the clipper knows
            const double tolerance = 1e-3 + halfPerimeter(each.operands[0]) + halfPerimeter(each.operands[1]);
            EXPECT_NEAR(clip(each.op, each.operands[0], each.operands[1]).area(), each.area, tolerance) << each.caption;
            ++checked;
        }
    }
    EXPECT_GE(checked, 90);
}

} // namespace
