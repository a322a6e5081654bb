// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QString>
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
    const struct {
        const char* name;
        std::string text;
        const char* message; ///< a part of it
    } rows[] = {
        {"empty", "", "empty"},
        {"prose", "Dear all,\nthe meeting is at 3.\n", "line 1: 'Dear all,' is not a group"},
        {"other bytes", "\x89PNG\r\n\x1A\n\0\0\0"s, "a PNG picture"},
        {"no line end", std::string(1u << 20, '7'), "too long"},
        {"numbers only", "0\n1\n2\n3\n", "no sections"},
        {"just an end", "0\nEOF\n", "no sections"},
        {"no end mark", unended, "truncated"},
        {"amid a section", whole.substr(0, 40), "truncated"},
        {"amid the end mark", unended + "0\nEO", "truncated"},
        {"end mark without its value", unended + "0\n", "truncated"},
        {"nothing but the mark of binary drawings", "Program Binary DXF\r\n\x1A\0"s, "no sections"},
        {"binary, with a code of no known kind", bytesOf(section("ENTITIES", line + "85=1"), BinaryCodes::wide),
         "byte 90: 85 is not a group code"},
        {"binary, with too high a count", bytesOf(drawingOf("0=LWPOLYLINE 90=10"), BinaryCodes::narrow),
         "byte 54: LWPOLYLINE announces 10 vertices"},
        {"binary, with an endless text", bytesOf("0=" + std::string(1u << 20, 'x'), BinaryCodes::wide), "too long"},
    };
    const TemporaryDirectory directory;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string path = directory.write("refused.dxf", row.text);
        expectRefusal(path, ReadError::Reason::notADrawing, row.message);
    }
}

TEST(Refused, BinaryDrawingsThatAreCutOff) {
    const TemporaryDirectory directory;
    for (const BinaryCodes codes : {BinaryCodes::wide, BinaryCodes::narrow}) {
        const std::string whole = bytesOf(drawingOf(line + "1071=5 310=FFFF"), codes);
        for (size_t size = 30; size < whole.size(); ++size) {
            const std::string path = directory.write("cut.dxf", whole.substr(0, size));
            expectRefusal(path, ReadError::Reason::notADrawing, size < 49 ? "" : "truncated");
        }
    }
}

TEST(Tolerated, AnyNumberInBinaryForm) {
    const std::string whole =
        bytesOf(drawingOf("0=LINE 10=1e-300 20=0.1 30=nan 11=-1.7976931348623157e308 1=a\\x0Ab"), BinaryCodes::wide);
    const Drawing drawing = readText(whole);
    ASSERT_EQ(drawing.modelSpace.size(), 1u);
    const auto& read = std::get<Line>(drawing.modelSpace[0].geometry);
    EXPECT_EQ(read.start.x, 1e-300);
    EXPECT_EQ(read.start.y, 0.1);
    EXPECT_EQ(read.start.z, 0.0);
    EXPECT_EQ(read.end.x, 0.0);
}

TEST(Refused, WhatCannotBeOpened) {
    const TemporaryDirectory directory;
    for (const std::string& path : {directory.path("missing.dxf"), directory.path(), "/dev/null"s, ""s}) {
        expectRefusal(path, ReadError::Reason::cannotOpen, "");
    }
}

TEST(Tolerated, OdditiesKeepTheirLine) {
    const std::string whole = linesOf(drawingOf(line));
    const std::pair<const char*, std::string> rows[] = {
        {"carriage returns", QString::fromStdString(whole).replace("\n", "\r\n").toStdString()},
        {"byte order mark", "\xEF\xBB\xBF" + whole},
        {"no newline at the end", whole.substr(0, whole.size() - 1)},
        {"text after the end", whole + "anything\ngoes\nhere"},
        {"no sections", linesOf(line + "0=EOF")},
        {"comment", "999\ndxflib\n" + whole},
        {"negative code", "-5\nx\n" + whole},
        {"long value", linesOf(drawingOf(line + "7=" + std::string(5000, 'x') + " 999=" + std::string(99999, 'y')))},
    };
    for (const auto& [name, text] : rows) {
        EXPECT_EQ(shown(readText(text)), std::vector<std::string>{"line 1,2,0 3,4,0"}) << name;
    }
}

TEST(ReadingProgress, RisesToTheEnd) {
    const TemporaryDirectory directory;
    const std::string lines = QString::fromStdString(line).repeated(40000).toStdString();
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
