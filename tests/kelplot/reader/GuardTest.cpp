// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "kelplot/reader/DrawingText.h"
#include "reader/DxfReader.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

using namespace std::string_literals;

const std::string line = "0=LINE 10=1 20=2 11=3 21=4 ";

/// Reads what must be refused, and compares the error.
void expectRefusal(const std::string& path, ReadError::Reason reason, const std::string& part) {
    try {
        DxfReader().read(path, {});
        ADD_FAILURE() << path << " was read";
    } catch (const ReadError& error) {
        const std::string message = error.what();
        EXPECT_EQ(error.reason, reason) << message;
        EXPECT_EQ(message.rfind(path + ": ", 0), 0u) << message;
        EXPECT_NE(message.find(part), std::string::npos) << message;
    }
}

TEST(Refused, WhatIsNoDrawing) {
    const std::string whole = linesOf(drawingOf(line));
    const std::string unended = linesOf(section("ENTITIES", line));
    const auto counting = [](const std::string& groups) {
        return linesOf(drawingOf(groups + "=2147483647 10=1 20=2"));
    };
    const struct {
        const char* name;
        std::string text;
        const char* message; ///< a part of it
    } rows[] = {
        {"empty", "", "empty"},
        {"binary", "Program Binary DXF\r\n\x1A\0\0\0SECTION"s, "binary"},
        {"prose", "Dear all,\nthe meeting is at 3.\n", "line 1: 'Dear all,' is not a group"},
        {"other bytes", "\x89PNG\r\n\x1A\n\0\0\0"s, "line 1: '?PNG' is not a group code"},
        {"no line end", std::string(1u << 20, '7'), "too long"},
        {"numbers only", "0\n1\n2\n3\n", "no sections"},
        {"just an end", "0\nEOF\n", "no sections"},
        {"code goes missing", linesOf(section("ENTITIES", line + "oops=1") + "0=EOF"),
         "line 15: 'oops' is not a group"},
        {"no end mark", unended, "truncated"},
        {"amid a section", whole.substr(0, 40), "truncated"},
        {"amid the end mark", unended + "0\nEO", "truncated"},
        {"end mark without its value", unended + "0\n", "truncated"},
        {"vertices", counting("0=LWPOLYLINE 90"), "line 8: LWPOLYLINE announces 2147483647 vertices"},
        {"knots", counting("0=SPLINE 72"), "knots"},
        {"control points", counting("0=SPLINE 73"), "control points"},
        {"fit points", counting("0=SPLINE 74"), "fit points"},
        {"loops", counting("0=HATCH 91"), "boundaries"},
        {"edges", counting("0=HATCH 93"), "edges"},
        {"sources", counting("0=HATCH 97"), "sources"},
        {"dashes", linesOf(section("TABLES", "0=LTYPE 2=DASH 73=100")) + whole, "LTYPE announces 100 dashes"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const TemporaryDirectory directory;
        const std::string path = directory.write("refused.dxf", row.text);
        expectRefusal(path, ReadError::Reason::notADrawing, row.message);
    }
}

TEST(Refused, WhatCannotBeOpened) {
    const TemporaryDirectory directory;
    for (const std::string& path : {directory.path("missing.dxf"), directory.path(), "/dev/null"s, ""s}) {
        expectRefusal(path, ReadError::Reason::cannotOpen, "");
    }
}

std::string withCarriageReturns(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? "\r\n"s : std::string(1, c);
    }
    return result;
}

TEST(Tolerated, OdditiesKeepTheirLine) {
    const std::string whole = linesOf(drawingOf(line));
    const std::string announced = "9=LWPOLYLINE 90=2147483647";
    const std::pair<const char*, std::string> rows[] = {
        {"carriage returns", withCarriageReturns(whole)},
        {"byte order mark", "\xEF\xBB\xBF" + whole},
        {"no newline at the end", whole.substr(0, whole.size() - 1)},
        {"text after the end", whole + "anything\ngoes\nhere"},
        {"no sections", linesOf(line + "0=EOF")},
        {"comment", "999\ndxflib\n" + whole},
        {"negative code", "-5\nx\n" + whole},
        {"long value", linesOf(drawingOf(line + "7=" + std::string(5000, 'x') + " 999=" + std::string(99999, 'y')))},
        {"empty numbers", linesOf(drawingOf(line + "30= 31= 48="))},
        {"entity type behind a variable's code", linesOf(drawingOf(line + announced))},
        {"entity type as a header variable", linesOf(section("HEADER", announced + " 10=5")) + whole},
        {"entities of other sections", linesOf(section("OBJECTS", line)) + whole},
        {"embedded object", linesOf(drawingOf(line + "101=Embedded 10=77 21=88 62=1"))},
    };
    for (const auto& [name, text] : rows) {
        const Drawing drawing = readText(text);
        ASSERT_EQ(drawing.modelSpace.size(), 1u) << name;
        const Line* const read = std::get_if<Line>(&drawing.modelSpace.front().geometry);
        ASSERT_NE(read, nullptr) << name;
        EXPECT_EQ(read->start, (Vec3{1, 2, 0})) << name;
        EXPECT_EQ(read->end, (Vec3{3, 4, 0})) << name;
    }
}

TEST(ReadingProgress, RisesToTheEnd) {
    std::string lines;
    for (int i = 0; i < 40000; ++i) {
        lines += line;
    }
    const TemporaryDirectory directory;
    const std::string path = directory.write("long.dxf", linesOf(drawingOf(lines)));
    std::vector<double> told;
    DxfReader().read(path, [&](double fraction) { told.push_back(fraction); });
    ASSERT_GE(told.size(), 4u);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GE(told.front(), 0.0);
    EXPECT_EQ(told.back(), 1.0);
}

} // namespace
} // namespace kelplot
