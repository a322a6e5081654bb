// SPDX-License-Identifier: BSD-3-Clause
#include <cctype>
#include <fstream>

#include <gtest/gtest.h>

#include "host/vnbase/LineOracle.h"

namespace {

struct SampleCase {
    std::string caption;
    std::vector<Line> lines;
    Contours region;
};

/// Cases of a file: a caption, polylines below "SUBJECTS_OPEN" and contours below "CLIPS", one a row.
std::vector<SampleCase> casesIn(std::istream& in) {
    std::vector<SampleCase> cases;
    std::string section;
    for (std::string row; std::getline(in, row);) {
        if (row.rfind("CAPTION:", 0) == 0) {
            cases.push_back({row, {}, {}});
        }
        if (row.empty() || std::isupper(static_cast<unsigned char>(row[0]))) {
            section = row.substr(0, row.find_last_not_of(" \r") + 1);
            continue;
        }
        std::string points; // "x,y, x,y" to "x,y x,y"
        for (size_t i = 0; i < row.size(); ++i) {
            const bool separates = row.compare(i, 2, ", ") == 0;
            points += separates ? "" : row.substr(i, 1);
        }
        if (section == "SUBJECTS_OPEN") {
            cases.back().lines.push_back(lineOf(points));
        } else if (section == "CLIPS") {
            cases.back().region.push_back({HT_RGN_XOR, lineOf(points)});
        }
    }
    return cases;
}

TEST(SampleLines, AgreeWithTheOracle) {
    std::ifstream in(KELDRIVER_SHARED_DATA "/clip/clipper2_lines.txt");
    if (!in) {
        GTEST_SKIP() << "no sample lines in " << KELDRIVER_SHARED_DATA;
    }
    const std::vector<SampleCase> cases = casesIn(in);
    EXPECT_EQ(cases.size(), 10U);
    for (const SampleCase& sample : cases) {
        ASSERT_FALSE(sample.lines.empty() || sample.region.empty()) << sample.caption;
        for (const Line& line : sample.lines) {
            const PieceList pieces = clip(sample.region, line);
            EXPECT_EQ(differenceFromOracle(sample.region, line, 100, {1e-9L, 1e-7L}, pieces), "") << sample.caption;
        }
    }
}

} // namespace
