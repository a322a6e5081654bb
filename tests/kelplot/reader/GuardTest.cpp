#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

#include "DrawingText.h"
#include "reader/DxfReader.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

using namespace std::string_literals;

const std::string line = groups({{0, "LINE"}, {10, "1"}, {20, "2"}, {11, "3"}, {21, "4"}});
const std::string end = groups({{0, "EOF"}});

/// The error with which `path` is refused; fails the test when it is not.
ReadError refusalOf(const std::string& path) {
    try {
        DxfReader().read(path, {});
    } catch (const ReadError& error) {
        return error;
    }
    ADD_FAILURE() << path << " was read";
    return {ReadError::Reason::cannotOpen, ""};
}

struct RefusedCase {
    const char* name;
    std::string text;
    const char* message; ///< a part of it
};

std::ostream& operator<<(std::ostream& stream, const RefusedCase& row) {
    return stream << row.name;
}

class RefusedText : public ::testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedText, IsNotADrawing) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("refused.dxf", GetParam().text);
    const ReadError error = refusalOf(path);
    EXPECT_EQ(error.reason, ReadError::Reason::notADrawing);
    EXPECT_EQ(std::string(error.what()).rfind(path + ": ", 0), 0u) << error.what();
    EXPECT_NE(std::string(error.what()).find(GetParam().message), std::string::npos) << error.what();
}

INSTANTIATE_TEST_SUITE_P(
    Content, RefusedText,
    ::testing::Values(RefusedCase{"empty", "", "empty"},
                      RefusedCase{"binary", "Program Binary DXF\r\n\x1A\0\0\0SECTION"s, "binary"},
                      RefusedCase{"prose", "Dear all,\nthe meeting is at 3.\n", "line 1: 'Dear all,' is not a group"},
                      RefusedCase{"other bytes", "\x89PNG\r\n\x1A\n\0\0\0"s, "line 1: '?PNG' is not a group code"},
                      RefusedCase{"no line end", std::string(1u << 20, '7'), "too long"},
                      RefusedCase{"numbers only", "0\n1\n2\n3\n", "no sections"},
                      RefusedCase{"just an end", end, "no sections"},
                      RefusedCase{"code goes missing", section("ENTITIES", line + "oops\n1\n") + end,
                                  "line 15: 'oops' is not a group code"}));

INSTANTIATE_TEST_SUITE_P(
    Truncated, RefusedText,
    ::testing::Values(RefusedCase{"no end mark", section("ENTITIES", line), "truncated"},
                      RefusedCase{"amid a section", drawingOf(line).substr(0, 40), "truncated"},
                      RefusedCase{"amid the end mark", section("ENTITIES", line) + "0\nEO", "truncated"},
                      RefusedCase{"end mark without its value", section("ENTITIES", line) + "0\n", "truncated"}));

RefusedCase count(const char* name, const char* type, int code, const char* message) {
    return {name, drawingOf(groups({{0, type}, {code, "2147483647"}, {10, "1"}, {20, "2"}})), message};
}

INSTANTIATE_TEST_SUITE_P(
    Counts, RefusedText,
    ::testing::Values(count("polyline", "LWPOLYLINE", 90, "line 8: LWPOLYLINE announces 2147483647 vertices"),
                      count("knots", "SPLINE", 72, "knots"), count("control points", "SPLINE", 73, "control points"),
                      count("fit points", "SPLINE", 74, "fit points"), count("loops", "HATCH", 91, "boundaries"),
                      count("edges", "HATCH", 93, "edges"), count("sources", "HATCH", 97, "sources"),
                      RefusedCase{"dashes",
                                  section("TABLES", groups({{0, "LTYPE"}, {2, "DASH"}, {73, "100"}})) + drawingOf(line),
                                  "LTYPE announces 100 dashes"}));

TEST(UnreadablePath, CannotBeOpened) {
    const TemporaryDirectory directory;
    for (const std::string& path : {directory.path("missing.dxf"), directory.path(), "/dev/null"s, ""s}) {
        const ReadError error = refusalOf(path);
        EXPECT_EQ(error.reason, ReadError::Reason::cannotOpen) << path;
        EXPECT_EQ(std::string(error.what()).rfind(path + ": ", 0), 0u) << error.what();
    }
}

struct ReadCase {
    const char* name;
    std::string text;
};

std::ostream& operator<<(std::ostream& stream, const ReadCase& row) {
    return stream << row.name;
}

class ToleratedText : public ::testing::TestWithParam<ReadCase> {};

TEST_P(ToleratedText, KeepsItsLine) {
    const Drawing drawing = readText(GetParam().text);
    ASSERT_EQ(drawing.modelSpace.size(), 1u);
    const Line* const read = std::get_if<Line>(&drawing.modelSpace.front().geometry);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->start, (Vec3{1, 2, 0}));
    EXPECT_EQ(read->end, (Vec3{3, 4, 0}));
}

std::string withCarriageReturns(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? "\r\n"s : std::string(1, c);
    }
    return result;
}

INSTANTIATE_TEST_SUITE_P(
    Oddities, ToleratedText,
    ::testing::Values(
        ReadCase{"carriage returns", withCarriageReturns(drawingOf(line))},
        ReadCase{"byte order mark", "\xEF\xBB\xBF" + drawingOf(line)},
        ReadCase{"no newline at the end", drawingOf(line).substr(0, drawingOf(line).size() - 1)},
        ReadCase{"text after the end", drawingOf(line) + "anything\ngoes\nhere"}, ReadCase{"no sections", line + end},
        ReadCase{"comment", groups({{999, "dxflib"}}) + drawingOf(line)},
        ReadCase{"negative code", groups({{-5, "x"}}) + drawingOf(line)},
        ReadCase{"long value", drawingOf(line + groups({{7, std::string(5000, 'x')}, {999, std::string(99999, 'y')}}))},
        ReadCase{"empty numbers", drawingOf(line + groups({{30, ""}, {31, "  "}, {48, ""}}))},
        ReadCase{"entity type behind a variable's code",
                 drawingOf(line + groups({{9, "LWPOLYLINE"}, {90, "2147483647"}}))},
        ReadCase{"entity type as a header variable",
                 section("HEADER", groups({{9, "LWPOLYLINE"}, {90, "2147483647"}, {10, "5"}})) + drawingOf(line)},
        ReadCase{"entities of other sections", section("OBJECTS", line) + drawingOf(line)},
        ReadCase{"embedded object",
                 drawingOf(line + groups({{101, "Embedded Object"}, {10, "77"}, {21, "88"}, {62, "1"}}))}));

TEST(ReadingProgress, RisesToTheEnd) {
    std::string lines;
    for (int i = 0; i < 40000; ++i) {
        lines += line;
    }
    const TemporaryDirectory directory;
    const std::string path = directory.write("long.dxf", drawingOf(lines));
    std::vector<double> told;
    DxfReader().read(path, [&](double fraction) { told.push_back(fraction); });
    ASSERT_GE(told.size(), 4u);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GE(told.front(), 0.0);
    EXPECT_EQ(told.back(), 1.0);
}

} // namespace
} // namespace kelplot
