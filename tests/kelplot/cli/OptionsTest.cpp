// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <ostream>

#include "cli/Options.h"

namespace kelplot {
namespace {

Options parse(const QStringList& arguments) {
    return optionsFromArguments(QStringList{"kelplot"} + arguments);
}

TEST(Options, DefaultsFitAPdfOnA4) {
    const Options options = parse({"plan.dxf"});
    EXPECT_EQ(options.action, Action::plot);
    EXPECT_EQ(options.inputs, QStringList{"plan.dxf"});
    EXPECT_EQ(options.format, OutputFormat::pdf);
    EXPECT_EQ(options.page.paper.size, (SheetSize{210.0, 297.0}));
    EXPECT_EQ(options.page.orientation, Orientation::automatic);
    EXPECT_FALSE(options.page.scale.has_value());
    EXPECT_DOUBLE_EQ(options.page.margins.bottom, 5.0);
}

TEST(Options, AllReachTheirPlace) {
    const Options options = parse({"--paper",
                                   "a2",
                                   "--landscape",
                                   "--margins=1,2,3,4",
                                   "--scale",
                                   "1:20",
                                   "--center",
                                   "--window",
                                   "-10,-20,30,40",
                                   "--monochrome",
                                   "--lineweight-scale",
                                   "0.7",
                                   "--layers",
                                   "A,B*",
                                   "--layers",
                                   "C",
                                   "--exclude-layers",
                                   "D",
                                   "--dpi=300",
                                   "--progress",
                                   "--strict",
                                   "-t",
                                   "out",
                                   "a.dxf",
                                   "b.dxf"});
    EXPECT_EQ(options.page.paper.size, (SheetSize{420.0, 594.0}));
    EXPECT_EQ(options.page.orientation, Orientation::landscape);
    EXPECT_DOUBLE_EQ(options.page.margins.left, 1.0);
    EXPECT_DOUBLE_EQ(options.page.margins.bottom, 4.0);
    EXPECT_DOUBLE_EQ(options.page.scale.value_or(0.0), 0.05);
    EXPECT_TRUE(options.page.centred);
    const Box2 window = options.page.window.value_or(Box2());
    EXPECT_EQ(window.min, (Vec2{-10.0, -20.0}));
    EXPECT_EQ(window.max, (Vec2{30.0, 40.0}));
    EXPECT_TRUE(options.style.monochrome);
    EXPECT_DOUBLE_EQ(options.style.lineWeightScale, 0.7);
    EXPECT_EQ(options.layers, (QStringList{"A", "B*", "C"}));
    EXPECT_EQ(options.excludedLayers, QStringList{"D"});
    EXPECT_EQ(options.dotsPerInch, 300);
    EXPECT_TRUE(options.forceProgress);
    EXPECT_TRUE(options.strict);
    EXPECT_EQ(options.outputDirectory, "out");
    EXPECT_EQ(options.inputs, (QStringList{"a.dxf", "b.dxf"}));
}

TEST(Options, ADoubleHyphenEndsThem) {
    EXPECT_EQ(parse({"--", "--strict"}).inputs, QStringList{"--strict"});
}

struct FormatCase {
    const char* name;
    QStringList arguments;
    OutputFormat format;
};

std::ostream& operator<<(std::ostream& stream, const FormatCase& row) {
    return stream << row.name;
}

class ChosenFormat : public ::testing::TestWithParam<FormatCase> {};

TEST_P(ChosenFormat, ComesFromTheOptionOrTheEnding) {
    EXPECT_EQ(parse(GetParam().arguments + QStringList{"plan.dxf"}).format, GetParam().format);
}

INSTANTIATE_TEST_SUITE_P(
    All, ChosenFormat,
    ::testing::Values(FormatCase{"option", {"--format", "PNG"}, OutputFormat::png},
                      FormatCase{"ending", {"-o", "plan.SVG"}, OutputFormat::svg},
                      FormatCase{"option before ending", {"--format=svg", "-o", "plan.png"}, OutputFormat::svg},
                      FormatCase{"option with foreign ending", {"--format=png", "-o", "plan.xyz"}, OutputFormat::png},
                      FormatCase{"no ending", {"-o", "dir.svg/plan"}, OutputFormat::pdf},
                      FormatCase{"directory", {"-t", "dir.svg"}, OutputFormat::pdf}));

struct UsageCase {
    const char* name;
    QStringList arguments;
    QStringList told; ///< what the message must hold
};

std::ostream& operator<<(std::ostream& stream, const UsageCase& row) {
    return stream << row.name;
}

class WrongUsage : public ::testing::TestWithParam<UsageCase> {};

TEST_P(WrongUsage, IsToldWithTheOptionAndWhatItAllows) {
    try {
        parse(GetParam().arguments);
        FAIL() << "accepted";
    } catch (const UsageError& error) {
        for (const QString& part : GetParam().told) {
            EXPECT_TRUE(QString::fromUtf8(error.what()).contains(part)) << error.what();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongUsage,
    ::testing::Values(
        UsageCase{"no drawing", {}, {"no drawing"}}, UsageCase{"options only", {"--fit"}, {"no drawing"}},
        UsageCase{"unknown option", {"--frobnicate", "a.dxf"}, {"frobnicate"}},
        UsageCase{"value missing", {"a.dxf", "--scale"}, {"scale"}},
        UsageCase{"value too many", {"--fit=2", "a.dxf"}, {"fit"}},
        UsageCase{"paper", {"--paper", "A99", "a.dxf"}, {"--paper", "A99", "A0, A1, ", "WIDTHxHEIGHT"}},
        UsageCase{"mistyped paper", {"--paper", "lettre", "a.dxf"}, {"nearest are Letter, "}},
        UsageCase{"paper beyond all sizes", {"--paper", "20001x9", "a.dxf"}, {"--paper", "20001x9", "20000"}},
        UsageCase{
            "paper to save has no size", {"--paper", "A3", "--save-paper", "Mine"}, {"--save-paper", "WIDTHxHEIGHT"}},
        UsageCase{
            "name of a saved paper is taken", {"--paper", "90x90", "--save-paper", "iso-a3"}, {"\"A3\"", "297x420"}},
        UsageCase{"name of a saved paper is a size", {"--paper", "90x90", "--save-paper", "9x9"}, {"9x9"}},
        UsageCase{"name of a saved paper holds a note", {"--paper", "90x90", "--save-paper", "No #1"}, {"No #1"}},
        UsageCase{"saved paper is too fine", {"--paper", "90.05x90", "--save-paper", "Mine"}, {"tenths"}},
        UsageCase{"JSON of a plot", {"--json", "a.dxf"}, {"--list-papers"}},
        UsageCase{"scale", {"--scale", "1:0", "a.dxf"}, {"--scale", "1:0", "1:50"}},
        UsageCase{"margins", {"--margins", "1,2", "a.dxf"}, {"--margins", "1,2", "LEFT,TOP,RIGHT,BOTTOM"}},
        UsageCase{"window", {"--window", "1,2,3", "a.dxf"}, {"--window", "1,2,3", "X1,Y1,X2,Y2"}},
        UsageCase{"margins too wide", {"--margins", "150", "a.dxf"}, {"--margins", "no room"}},
        UsageCase{
            "paper within the usual margins", {"--paper", "8x8", "a.dxf"}, {"--paper: \"8x8\"", "give --margins"}},
        UsageCase{"paper to save with a list",
                  {"--paper", "90x90", "--save-paper", "Mine", "--list-papers"},
                  {"--save-paper", "--list-papers"}},
        UsageCase{"format", {"--format", "tiff", "a.dxf"}, {"--format", "tiff", "pdf, png, svg"}},
        UsageCase{"ending", {"-o", "plan.jpg", "a.dxf"}, {"plan.jpg", "pdf, png, svg", "--format"}},
        UsageCase{"no output name", {"-o", "", "a.dxf"}, {"--output"}},
        UsageCase{"dpi is no number", {"--dpi", "fine", "a.dxf"}, {"--dpi", "fine", "2400"}},
        UsageCase{"dpi too high", {"--dpi", "2401", "a.dxf"}, {"--dpi", "2401"}},
        UsageCase{"dpi too low", {"--dpi", "9", "a.dxf"}, {"--dpi", "from 10"}},
        UsageCase{"dpi wraps", {"--dpi", "4294967496", "a.dxf"}, {"--dpi"}},
        UsageCase{"weight scale", {"--lineweight-scale", "-1", "a.dxf"}, {"--lineweight-scale", "0 to 100"}},
        UsageCase{"no layers", {"--layers", ",", "a.dxf"}, {"--layers"}},
        UsageCase{"both positions", {"--portrait", "--landscape", "a.dxf"}, {"--portrait", "--landscape"}},
        UsageCase{"fit and scale", {"--fit", "--scale", "1:2", "a.dxf"}, {"--fit", "--scale"}},
        UsageCase{"file and directory", {"-o", "x.pdf", "-t", "d", "a.dxf"}, {"--output", "--target-directory"}},
        UsageCase{"one file for two drawings", {"-o", "x.pdf", "a.dxf", "b.dxf"}, {"--output", "one drawing"}}));

} // namespace
} // namespace kelplot
