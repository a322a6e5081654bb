// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/CaseFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "kelplot/reader/DrawingText.h"

namespace kelplot {
namespace {

constexpr const char* sectionOrder[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

void addGroups(const std::string& line, Case& into) {
    std::string first;
    std::istringstream(line) >> first;
    const bool isSection = !first.empty() && first.find('=') == std::string::npos;
    std::string& groups = into.sections[isSection ? first : "ENTITIES"];
    groups += ' ' + line.substr(isSection ? line.find(first) + first.size() : 0);
}

std::vector<Case> casesIn(const std::string& path) {
    std::ifstream file(path);
    std::vector<Case> cases;
    Case shared;
    Case* current = &shared;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        const std::string mark = line.substr(0, 2);
        if (line.empty() || line[0] == '#') {
            continue;
        }
        if (mark == "> ") {
            current->expected.push_back(line.substr(2));
        } else if (mark == "@ ") {
            current->options.push_back(line.substr(2));
        } else if (line[0] != '[') {
            addGroups(line, *current);
        } else {
            const size_t end = line.find(']');
            current = mark == "[*" ? &(shared = Case()) : &cases.emplace_back(shared);
            current->place = path + ':' + std::to_string(number) + ": " + line.substr(1, end - 1);
            addGroups(line.substr(end + 1), *current);
        }
    }
    return cases;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += "> " + line + '\n';
    }
    return text;
}

} // namespace

std::string Case::groups() const {
    std::string result;
    for (const char* const name : sectionOrder) {
        const auto found = sections.find(name);
        result += found != sections.end() ? section(name, found->second) : "";
    }
    return result + "0=EOF";
}

void expectCases(const std::string& path, const std::function<std::vector<std::string>(const Case&)>& outcomeOf) {
    const std::vector<Case> cases = casesIn(path);
    EXPECT_FALSE(cases.empty()) << path;
    for (const Case& each : cases) {
        const std::vector<std::string> outcome = outcomeOf(each);
        EXPECT_TRUE(outcome == each.expected) << each.place << "\n"
                                              << joined(each.expected) << "is expected, and what comes is\n"
                                              << joined(outcome);
    }
}

} // namespace kelplot
