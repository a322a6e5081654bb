#include <gtest/gtest.h>

#include <ostream>

#include "DrawingText.h"

namespace kelplot {
namespace {

const std::string end = groups({{0, "EOF"}});

std::string variable(const char* name, int code, const char* value) {
    return groups({{9, name}, {code, value}});
}

std::string layer(const std::string& name, const std::string& more) {
    return groups({{0, "LAYER"}, {5, "1F"}, {2, name}}) + more;
}

/// A drawing with these layers and one line on `used`.
Drawing withLayers(const std::string& layers, const std::string& used) {
    return readText(
        section("TABLES", groups({{0, "TABLE"}, {2, "LAYER"}, {70, "9"}}) + layers + groups({{0, "ENDTAB"}})) +
        drawingOf(groups({{0, "LINE"}, {8, used}, {11, "1"}})));
}

TEST(LayerOpacity, IsReadFromTheDataThatStatesIt) {
    const std::string stated = groups({{1071, "33554483"}});
    const Drawing drawing = withLayers(layer("Faint", groups({{1001, "AcCmTransparency"}}) + stated) +
                                           layer("Full", groups({{1001, "SomethingElse"}}) + stated),
                                       "Faint");
    ASSERT_EQ(drawing.layers.size(), 3U);
    EXPECT_EQ(drawing.layers[1].opacity, 51);
    EXPECT_EQ(drawing.layers[2].opacity, opaque);
}

struct LayerCase {
    const char* name;
    std::string text;
    Colour colour;
    LineWeight weight;
    bool on;
    bool frozen;
    bool plotted;
};

std::ostream& operator<<(std::ostream& stream, const LayerCase& row) {
    return stream << row.name;
}

class LayerTable : public ::testing::TestWithParam<LayerCase> {};

TEST_P(LayerTable, IsRead) {
    const Drawing drawing = withLayers(layer(GetParam().name, GetParam().text), GetParam().name);
    const Layer& read = drawing.layers.at(drawing.modelSpace.at(0).attributes.layer);
    EXPECT_EQ(read.name, GetParam().name);
    EXPECT_EQ(read.colour.kind, GetParam().colour.kind);
    EXPECT_EQ(read.colour.value, GetParam().colour.value);
    EXPECT_EQ(read.lineWeight, GetParam().weight);
    EXPECT_EQ(read.on, GetParam().on);
    EXPECT_EQ(read.frozen, GetParam().frozen);
    EXPECT_EQ(read.plotted, GetParam().plotted);
}

using Kind = Colour::Kind;

INSTANTIATE_TEST_SUITE_P(
    Layers, LayerTable,
    ::testing::Values(
        LayerCase{"plain", "", {Kind::index, 7}, lineWeightDefault, true, false, true},
        LayerCase{"off", groups({{70, "0"}, {62, "-3"}, {370, "50"}}), {Kind::index, 3}, 50, false, false, true},
        LayerCase{"frozen", groups({{70, "65"}, {62, "5"}}), {Kind::index, 5}, lineWeightDefault, true, true, true},
        LayerCase{"locked", groups({{70, "4"}, {62, "5"}}), {Kind::index, 5}, lineWeightDefault, true, false, true},
        LayerCase{"screen", groups({{290, "0"}}), {Kind::index, 7}, lineWeightDefault, true, false, false},
        LayerCase{
            "true", groups({{62, "-1"}, {420, "255"}}), {Kind::trueColour, 255}, lineWeightDefault, false, false, true},
        LayerCase{"marks", groups({{62, "256"}, {370, "-1"}}), {Kind::index, 7}, lineWeightDefault, true, false, true},
        LayerCase{"DEFPOINTS", groups({{290, "1"}}), {Kind::index, 7}, lineWeightDefault, true, false, false}));

TEST(LayerNames, DifferByMoreThanCase) {
    const Drawing drawing = withLayers(layer("Walls", groups({{62, "1"}})) + layer("0", groups({{62, "2"}})), "WALLS");
    ASSERT_EQ(drawing.layers.size(), 2u);
    EXPECT_EQ(drawing.layers[0].name, "0");
    EXPECT_EQ(drawing.layers[0].colour.value, 2u);
    EXPECT_EQ(drawing.modelSpace.at(0).attributes.layer, 1u);
}

TEST(LineTypeTable, IsReadInWhateverOrder) {
    const std::string layers = layer("A", groups({{6, "dashdot"}}));
    const std::string types =
        groups({{0, "LTYPE"}, {2, "ByLayer"}, {73, "0"}}) +
        groups({{0, "LTYPE"}, {2, "DASHDOT"}, {73, "4"}, {40, "3"}, {49, "1.5"}, {74, "0"}, {49, "-1"}, {49, "0"}}) +
        groups({{49, "-0.5"}}) + groups({{0, "LTYPE"}, {2, "STUCK"}, {73, "2"}, {49, "0"}, {49, "0"}});
    const std::string used = groups({{0, "LINE"}, {6, "BYBLOCK"}}) + groups({{0, "LINE"}, {6, "ByLayer"}}) +
                             groups({{0, "LINE"}, {6, "Missing"}}) + groups({{0, "LINE"}, {6, "CONTINUOUS"}});
    const Drawing drawing = readText(section("TABLES", layers + types) + drawingOf(used));
    ASSERT_EQ(drawing.lineTypes.size(), 4u);
    EXPECT_EQ(drawing.lineTypes[0].name, "Continuous");
    EXPECT_EQ(drawing.lineTypes[1].pattern, (std::vector<double>{1.5, -1, 0, -0.5}));
    EXPECT_EQ(drawing.lineTypes[2].name, "STUCK");
    EXPECT_TRUE(drawing.lineTypes[2].pattern.empty());
    EXPECT_EQ(drawing.layers.at(1).lineType, 1u);
    ASSERT_EQ(drawing.modelSpace.size(), 4u);
    EXPECT_EQ(drawing.modelSpace[0].attributes.lineType, lineTypeByBlock);
    EXPECT_EQ(drawing.modelSpace[1].attributes.lineType, lineTypeByLayer);
    EXPECT_EQ(drawing.modelSpace[2].attributes.lineType, 3u);
    EXPECT_EQ(drawing.modelSpace[3].attributes.lineType, 0u);
}

TEST(HeaderVariable, ValuesThatAPlotNeeds) {
    const std::string header = variable("$LTSCALE", 40, "2.5") + variable("$UCSNAME", 2, "") +
                               variable("$CLAYER", 8, "0") + variable("$UCSBASE", 2, "ENTITIES") +
                               variable("$PDMODE", 70, "34") + variable("$PDSIZE", 40, "-3") +
                               variable("$LWDEFAULT", 370, "35");
    const Drawing drawing = readText(section("HEADER", header) + end);
    EXPECT_EQ(drawing.lineTypeScale, 2.5);
    EXPECT_EQ(drawing.pointMode, 34);
    EXPECT_EQ(drawing.pointSize, -3.0);
    EXPECT_EQ(drawing.defaultLineWeight, 35);
}

TEST(HeaderVariable, BadValuesLeaveTheDefaults) {
    const std::string header = variable("$LTSCALE", 40, "0") + variable("$PDSIZE", 40, "nan") +
                               variable("$INSUNITS", 70, "77") + variable("$LWDEFAULT", 370, "-3");
    const Drawing drawing = readText(section("HEADER", header) + end);
    EXPECT_EQ(drawing.lineTypeScale, 1.0);
    EXPECT_EQ(drawing.pointSize, 0.0);
    EXPECT_EQ(drawing.millimetresPerUnit, 1.0);
    EXPECT_EQ(drawing.defaultLineWeight, 25);
}

struct UnitCase {
    const char* insertUnits;
    const char* measurement;
    double millimetres;
};

std::ostream& operator<<(std::ostream& stream, const UnitCase& row) {
    return stream << "unit " << row.insertUnits << ", measurement " << row.measurement;
}

class DrawingUnit : public ::testing::TestWithParam<UnitCase> {};

TEST_P(DrawingUnit, IsInMillimetres) {
    const std::string header =
        variable("$MEASUREMENT", 70, GetParam().measurement) + variable("$INSUNITS", 70, GetParam().insertUnits);
    EXPECT_DOUBLE_EQ(readText(section("HEADER", header) + end).millimetresPerUnit, GetParam().millimetres);
}

INSTANTIATE_TEST_SUITE_P(Units, DrawingUnit,
                         ::testing::Values(UnitCase{"0", "0", 25.4}, UnitCase{"0", "1", 1.0}, UnitCase{"1", "1", 25.4},
                                           UnitCase{"2", "1", 304.8}, UnitCase{"4", "0", 1.0}, UnitCase{"5", "0", 10.0},
                                           UnitCase{"6", "0", 1000.0}, UnitCase{"10", "0", 914.4},
                                           UnitCase{"14", "0", 100.0}, UnitCase{"21", "0", 304.8006096012192}));

struct NameCase {
    const char* name;
    const char* version;
    const char* codePage;
    std::string bytes;
    const char* utf8;
};

std::ostream& operator<<(std::ostream& stream, const NameCase& row) {
    return stream << row.name;
}

class NameText : public ::testing::TestWithParam<NameCase> {};

TEST_P(NameText, BecomesUtf8) {
    const std::string header =
        variable("$ACADVER", 1, GetParam().version) + variable("$DWGCODEPAGE", 3, GetParam().codePage);
    const Drawing drawing =
        readText(section("HEADER", header) + drawingOf(groups({{0, "LINE"}, {8, GetParam().bytes}, {11, "1"}})));
    ASSERT_EQ(drawing.layers.size(), 2u);
    EXPECT_EQ(drawing.layers[1].name, GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(
    Names, NameText,
    ::testing::Values(NameCase{"cyrillic", "AC1015", "ANSI_1251", "\xD1\xF2\xE5\xED\xE0", "Стена"},
                      NameCase{"latin", "AC1009", "ansi_1252", "W\xE4nde", "Wände"},
                      NameCase{"japanese", "AC1012", "dos932", "\x95\xC7", "壁"},
                      // The second byte of the sign is that of a backslash.
                      NameCase{"japanese with a backslash byte", "AC1015", "ANSI_932", "\x95\x5C", "表"},
                      NameCase{"chinese", "AC1018", "ANSI_936", "\xC7\xBD", "墙"},
                      NameCase{"unicode", "AC1021", "ANSI_1251", "Стена", "Стена"},
                      NameCase{"not unicode after all", "AC1027", "ANSI_1251", "\xD1\xF2\xE5\xED\xE0", "Стена"},
                      NameCase{"unknown code page", "AC1015", "UNDEFINED", "Wände", "Wände"},
                      NameCase{"escaped", "AC1015", "ANSI_1252", "a\\U+0416b", "aЖb"},
                      NameCase{"escaped pair", "AC1024", "ANSI_1252", "\\U+D83D\\U+DE00", "😀"},
                      NameCase{"escaped bytes", "AC1015", "ANSI_1252", "\\M+195C7", "壁"},
                      NameCase{"no escape", "AC1015", "ANSI_1252", "a\\U+04\\M+9\\b\\", "a\\U+04\\M+9\\b\\"}));

} // namespace
} // namespace kelplot
