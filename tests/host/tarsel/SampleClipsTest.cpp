// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <map>

#include <gtest/gtest.h>

#include <QDir>

#include "ClipCases.h"

// Operations with known results, from files that other clippers are tested with.

namespace {

/// Results that differ for a reason.
const std::map<std::string, const char*> exceptions = {
    {"jts_overlay_misc.xml 2 union", "fills a hole that neither operand covers and whose ring runs back along itself"},
    {"multipoly-with-self-crossing-rings intersection", "what a ring winds around twice counts as inside there"},
    {"multipoly-with-self-crossing-rings union", "what a ring winds around twice counts as inside there"},
    {"multipoly-with-self-crossing-rings xor", "what a ring winds around twice counts as inside there"},
    {"nearly-vertical-segment union", "as narrow as the spacing of doubles; the area is that of their rounding"},
    {"thin-vertical-triangle union", "as narrow as the spacing of doubles; the area is that of their rounding"},
    {"thin-vertical-triangle-2 union", "as narrow as the spacing of doubles; the area is that of their rounding"},
};

std::vector<std::string> samplePaths(const char* folder, const char* pattern, QDir::Filters filters = QDir::Files) {
    const QDir directory(QString(KELDRIVER_SHARED_DATA) + folder);
    std::vector<std::string> paths;
    for (const QString& name : directory.entryList({pattern}, filters, QDir::Name)) {
        paths.push_back(directory.filePath(name).toStdString());
    }
    return paths;
}

Polygon evaluate(const ClipCase& clipCase) {
    Polygon result = clipCase.operands.front();
    if (clipCase.operands.size() == 1) {
        return clip(GPC_UNION, result, {});
    }
    for (size_t i = 1; i < clipCase.operands.size(); ++i) {
        result = clip(clipCase.op, result, clipCase.operands[i]);
    }
    return result;
}

void expectConsistency(const ClipCase& clipCase) {
    const Polygon& a = clipCase.operands[0];
    const Polygon& b = clipCase.operands[1];
    const double both = clip(GPC_INT, a, b).area();
    const double tolerance = 1e-9 * boxArea(clipCase.operands);
    EXPECT_NEAR(clip(GPC_UNION, a, b).area() + both, evenOddArea(a) + evenOddArea(b), tolerance) << clipCase.name;
    EXPECT_NEAR(clip(GPC_DIFF, a, b).area() + both, evenOddArea(a), tolerance) << clipCase.name;
    EXPECT_NEAR(clip(GPC_DIFF, b, a).area() + both, evenOddArea(b), tolerance) << clipCase.name;
    EXPECT_NEAR(clip(GPC_XOR, a, b).area() + 2 * both, evenOddArea(a) + evenOddArea(b), tolerance) << clipCase.name;
}

void expectArea(const ClipCase& clipCase) {
    double tolerance = 1e-9 * boxArea(clipCase.operands);
    if (clipCase.expectation == ClipCase::Expectation::RoundedArea) {
        // Every crossing may have moved by half a unit, and the edges with it.
        for (const Polygon& operand : clipCase.operands) {
            tolerance += operand.perimeter() / 2;
        }
    }
    const double area = evaluate(clipCase).area();
    const auto exception = exceptions.find(clipCase.name);
    if (exception == exceptions.end()) {
        EXPECT_NEAR(area, clipCase.area, tolerance) << clipCase.name;
    } else {
        EXPECT_GT(std::fabs(area - clipCase.area), tolerance) << "no exception any more: " << exception->second;
    }
}

template <typename Read>
void expectFiles(const std::vector<std::string>& paths, Read read, size_t atLeast) {
    if (paths.empty()) {
        GTEST_SKIP() << "no sample files in " KELDRIVER_SHARED_DATA;
    }
    size_t checked = 0;
    for (const std::string& path : paths) {
        for (const ClipCase& clipCase : read(path)) {
            const bool isOtherRule = !clipCase.rule.empty() && clipCase.rule != "EVENODD"; // the clipper knows one rule
            if (isOtherRule || clipCase.area < 0) {
                continue;
            }
            ++checked;
            const bool isKnown = clipCase.expectation != ClipCase::Expectation::Consistency;
            isKnown ? expectArea(clipCase) : expectConsistency(clipCase);
        }
    }
    EXPECT_GE(checked, atLeast);
}

TEST(SampleClips, Captioned) {
    expectFiles(samplePaths("/clip", "clipper2_polygons.txt"), readCaptionedCases, 96);
}

TEST(SampleClips, Xml) {
    expectFiles(samplePaths("/clip", "jts_*.xml"), readXmlCases, 190);
}

TEST(SampleClips, Features) {
    expectFiles(samplePaths("/clip", "mz*.geojson"), readFeatureCases, 36);
}

TEST(SampleClips, Directories) {
    expectFiles(samplePaths("/clip/pc", "*", QDir::Dirs | QDir::NoDotAndDotDot), readDirectoryCases, 97);
}

} // namespace
