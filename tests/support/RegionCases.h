// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/PlotText.h"
#include "support/RegionOracle.h"

/// Files of cases, one a line: "name: input => outcome". The name or the outcome may be missing. A line "word = text"
/// lets the word stand for the text in the inputs that follow; lines that begin with "#" are comments.
namespace regionCases {

struct Case {
    std::string place; ///< file, line and the line's text, for messages
    std::string name, input, outcome;
};

inline std::vector<Case> read(const std::string& path) {
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    std::map<std::string, std::string> shapes;
    std::vector<Case> cases;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        const size_t equals = line.find(" = ");
        const size_t arrow = std::min(line.find(" =>"), line.size());
        const size_t colon = line.find(": ");
        if (equals != std::string::npos) {
            shapes[line.substr(0, equals)] = line.substr(equals + 3);
        } else if (!line.empty() && line[0] != '#') {
            Case each{path, "", "", ""};
            each.place.append(":").append(std::to_string(number)).append(": ").append(line);
            each.name = colon < arrow ? line.substr(0, colon) : "";
            const size_t start = std::min(colon < arrow ? colon + 2 : 0, arrow);
            std::istringstream words(line.substr(start, arrow - start));
            for (std::string word; words >> word;) {
                each.input += (each.input.empty() ? "" : " ") + (shapes.count(word) ? shapes[word] : word);
            }
            each.outcome = arrow + 4 < line.size() ? line.substr(arrow + 4) : "";
            cases.push_back(each);
        }
    }
    return cases;
}

/// "x,y x,y …"
inline regionOracle::Points pointsOf(const std::string& text) {
    std::istringstream in(text);
    regionOracle::Points points;
    for (std::string x, y; std::getline(in, x, ',') && in >> y;) {
        points.push_back({std::stod(x), std::stod(y)});
    }
    return points;
}

/// "code points / code points …"
inline regionOracle::Contours contoursOf(const std::string& text) {
    std::istringstream in(text);
    regionOracle::Contours contours;
    for (std::string contour; std::getline(in >> std::ws, contour, '/');) {
        const std::string points = contour.substr(std::min(contour.find(' '), contour.size()));
        contours.push_back({std::stoi(contour, nullptr, 0), pointsOf(points)});
    }
    return contours;
}

/// The same of a list.
inline std::string textOf(const HT_ClipRgn* list) {
    std::string text;
    for (; list != nullptr; list = list->next) {
        text += (text.empty() ? "" : " / ") + std::to_string(list->mode);
        for (int i = 0; list->points != nullptr && i < list->pointCount; ++i) {
            text += " " + plotText::number(list->points[i].x) + "," + plotText::number(list->points[i].y);
        }
    }
    return text;
}

} // namespace regionCases
