// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <ostream>

#include "settings/PenFile.h"
#include "settings/SettingsFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

const PenRule& pen(const PenTable& table, uint32_t number) {
    return table.ruleFor({Colour::Kind::index, number});
}

PenTable tableOf(const std::string& text) {
    const TemporaryDirectory directory;
    return penTableFrom({QString::fromStdString(directory.write("pens.ini", text))});
}

TEST(PenFile, StatesWidthColourAndScreening) {
    const PenTable table = tableOf("[Pens]\n1=0.35,Black,60 # existing\n2= drawing , ff8000\n3=0\n4=,,25\nother=0.5\n");
    EXPECT_EQ(pen(table, 1).width, 0.35);
    EXPECT_EQ(pen(table, 1).ink, HT_Color{0x000000});
    EXPECT_EQ(pen(table, 1).screening, 60);
    EXPECT_EQ(pen(table, 2).width, std::nullopt);
    EXPECT_EQ(pen(table, 2).ink, HT_Color{0x0080ff}) << "red is the low byte of an ink";
    EXPECT_EQ(pen(table, 2).screening, 100);
    EXPECT_EQ(pen(table, 3).width, 0.0);
    EXPECT_EQ(pen(table, 4).width, std::nullopt) << "a pen that is listed takes nothing from the others";
    EXPECT_EQ(pen(table, 4).screening, 25);
    EXPECT_EQ(pen(table, 255).width, 0.5);
    EXPECT_EQ(table.ruleFor({Colour::Kind::trueColour, 1}).width, std::nullopt);
}

TEST(PenFile, GoesBeforeAnotherPenByPen) {
    const TemporaryDirectory directory;
    const QString device = QString::fromStdString(directory.write("device.ini", "[Pens]\n1=1\n2=2\nother=3\n"));
    const QString own = QString::fromStdString(directory.write("own.ini", "[Pens]\n2=4\nother=5\n"));
    const PenTable table = penTableFrom({device, own});
    EXPECT_EQ(pen(table, 1).width, 1.0);
    EXPECT_EQ(pen(table, 2).width, 4.0);
    EXPECT_EQ(pen(table, 3).width, 5.0);
}

TEST(PenFile, OfTheExamplesIsSound) {
    const PenTable table = penTableFrom({QStringLiteral(EXAMPLE_PENS)});
    EXPECT_EQ(pen(table, 8).screening, 50);
    EXPECT_EQ(pen(table, 10).ink, HT_Color{0x0000c0});
    EXPECT_EQ(pen(table, 100).width, 0.18);
}

struct FaultCase {
    const char* name;
    const char* text;
    const char* told;
};

std::ostream& operator<<(std::ostream& stream, const FaultCase& row) {
    return stream << row.name;
}

class FaultyPens : public ::testing::TestWithParam<FaultCase> {};

TEST_P(FaultyPens, AreToldWithFileAndLine) {
    try {
        tableOf(GetParam().text);
        FAIL() << "accepted";
    } catch (const SettingsError& error) {
        const std::string told = error.what();
        EXPECT_NE(told.find("pens.ini: "), std::string::npos) << told;
        EXPECT_NE(told.find(GetParam().told), std::string::npos) << told;
    }
}

INSTANTIATE_TEST_SUITE_P(All, FaultyPens,
                         ::testing::Values(FaultCase{"no table", "[Defaults]\ndpi=200\n", "[Pens]"},
                                           FaultCase{"malformed line", "[Pens]\n1 0.35\n", "1 0.35"},
                                           FaultCase{"no such number", "[Pens]\n256=1\n", "pen 256"},
                                           FaultCase{"no number", "[Pens]\nred=1\n", "pen red"},
                                           FaultCase{"no width", "[Pens]\n3=thin\n", "pen 3=thin: \"thin\""},
                                           FaultCase{"width below 0", "[Pens]\n3=-1\n", "\"-1\""},
                                           FaultCase{"no colour", "[Pens]\n3=1,blue\n", "\"blue\""},
                                           FaultCase{"colour with a sign", "[Pens]\n3=1,-1FFFF\n", "colour"},
                                           FaultCase{"too much screening", "[Pens]\n3=1,black,101\n", "\"101\""},
                                           FaultCase{"decimal comma", "[Pens]\nother=0,35,black,50\n",
                                                     "pen other=0,35,black,50"}));

} // namespace
} // namespace kelplot
