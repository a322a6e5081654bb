// SPDX-License-Identifier: BSD-3-Clause
#include <fstream>
#include <map>
#include <sstream>

#include "ClipCases.h"

namespace {

const std::map<std::string, gpc_op> operations = {
    {"INTERSECTION", GPC_INT}, {"UNION", GPC_UNION}, {"DIFFERENCE", GPC_DIFF}, {"XOR", GPC_XOR}};

/// "x,y x,y …" with blanks or commas between all numbers.
Polygon::Contour readVertices(std::string line) {
    for (char& character : line) {
        character = character == ',' ? ' ' : character;
    }
    std::istringstream numbers(line);
    Polygon::Contour contour;
    for (gpc_vertex vertex{}; numbers >> vertex.x >> vertex.y;) {
        contour.push_back(vertex);
    }
    return contour;
}

} // namespace

std::vector<ClipCase> readCaptionedCases(const std::string& path) {
    std::vector<ClipCase> cases;
    std::ifstream file(path);
    Polygon* target = nullptr;
    for (std::string line; std::getline(file, line);) {
        line.erase(line.find_last_not_of(" \r") + 1);
        const size_t colon = line.find(": ");
        const std::string key = line.substr(0, colon);
        const std::string value = colon == std::string::npos ? "" : line.substr(colon + 2);
        if (key == "CAPTION") {
            cases.push_back({"captioned " + value, GPC_UNION, {{}, {}}, ClipCase::Expectation::RoundedArea, -1, {}});
            target = nullptr;
        } else if (cases.empty()) {
            continue;
        } else if (key == "CLIPTYPE") {
            cases.back().op = operations.at(value);
        } else if (key == "FILLRULE") {
            cases.back().rule = value;
        } else if (key == "SOL_AREA") {
            cases.back().area = std::stod(value);
        } else if (key == "SUBJECTS" || key == "CLIPS") {
            target = &cases.back().operands[key == "CLIPS" ? 1 : 0];
        } else if (target && !line.empty()) {
            target->contours.push_back(readVertices(line));
        }
    }
    return cases;
}
