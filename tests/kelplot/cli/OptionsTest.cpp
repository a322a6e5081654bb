// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "cli/CommandLine.h"
#include "cli/PlotPlan.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

Request parse(const QStringList& arguments) {
    return requestFromArguments(QStringList{"kelplot"} + arguments);
}

PlotPlan planOf(const QStringList& arguments) {
    return planFor(parse(arguments));
}

TEST(Options, DefaultsFitAPdfOnA4) {
    EXPECT_EQ(parse({"plan.dxf"}).action, Action::plot);
    const PlotPlan options = planOf({"plan.dxf"});
    EXPECT_EQ(options.inputs, QStringList{"plan.dxf"});
    EXPECT_EQ(options.format, OutputFormat::pdf);
    EXPECT_EQ(options.page.paper.size, (SheetSize{210.0, 297.0}));
    EXPECT_EQ(options.page.orientation, Orientation::automatic);
    EXPECT_FALSE(options.page.scale.has_value());
    EXPECT_DOUBLE_EQ(options.page.margins.bottom, 5.0);
}

TEST(Options, AllReachTheirPlace) {
    const QString line = "--paper a2 --landscape --margins=1,2,3,4 --scale 1:20 --center --window -10,-20,30,40 "
                         "--monochrome --lineweight-scale 0.7 --layers A,B* --layers C --exclude-layers D --dpi=300 "
                         "--progress --strict -t out a.dxf b.dxf";
    const Request request = parse(line.split(' '));
    const PlotPlan options = planFor(request);
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
    EXPECT_TRUE(request.forceProgress);
    EXPECT_TRUE(options.strict);
    EXPECT_EQ(options.outputs, (QStringList{"out/a.pdf", "out/b.pdf"}));
    EXPECT_EQ(options.inputs, (QStringList{"a.dxf", "b.dxf"}));
}

TEST(Options, ADoubleHyphenEndsThem) {
    EXPECT_EQ(parse({"--", "--strict"}).inputs, QStringList{"--strict"});
}

TEST(Options, TheFormatComesFromTheOptionOrTheEnding) {
    const std::pair<QStringList, OutputFormat> rows[] = {
        {{"--format", "PNG"}, OutputFormat::png},
        {{"-o", "plan.SVG"}, OutputFormat::svg},
        {{"--format=svg", "-o", "plan.png"}, OutputFormat::svg},
        {{"--format=png", "-o", "plan.xyz"}, OutputFormat::png},
        {{"-o", "dir.svg/plan"}, OutputFormat::pdf},
        {{"-t", "dir.svg"}, OutputFormat::pdf},
    };
    for (const auto& [arguments, format] : rows) {
        EXPECT_EQ(planOf(arguments + QStringList{"plan.dxf"}).format, format) << arguments.join(' ').toStdString();
    }
}

TEST(Options, WrongUsageIsToldWithTheOptionAndWhatItAllows) {
    const std::pair<QStringList, QStringList> rows[] = {
        {{}, {"no drawing"}},
        {{"--fit"}, {"no drawing"}},
        {{"--frobnicate", "a.dxf"}, {"frobnicate"}},
        {{"a.dxf", "--scale"}, {"scale"}},
        {{"--fit=2", "a.dxf"}, {"fit"}},
        {{"--paper", "A99", "a.dxf"}, {"--paper", "A99", "A0, A1, ", "WIDTHxHEIGHT"}},
        {{"--paper", "lettre", "a.dxf"}, {"nearest are Letter, "}},
        {{"--paper", "20001x9", "a.dxf"}, {"--paper", "20001x9", "20000"}},
        {{"--paper", "A3", "--save-paper", "Mine"}, {"--save-paper", "WIDTHxHEIGHT"}},
        {{"--paper", "90x90", "--save-paper", "iso-a3"}, {"\"A3\"", "297x420"}},
        {{"--paper", "90x90", "--save-paper", "9x9"}, {"9x9"}},
        {{"--paper", "90x90", "--save-paper", "No #1"}, {"No #1"}},
        {{"--paper", "90.05x90", "--save-paper", "Mine"}, {"tenths"}},
        {{"--json", "a.dxf"}, {"--list-papers"}},
        {{"--scale", "1:0", "a.dxf"}, {"--scale", "1:0", "1:50"}},
        {{"--margins", "1,2", "a.dxf"}, {"--margins", "1,2", "LEFT,TOP,RIGHT,BOTTOM"}},
        {{"--window", "1,2,3", "a.dxf"}, {"--window", "1,2,3", "X1,Y1,X2,Y2"}},
        {{"--margins", "150", "a.dxf"}, {"--margins", "no room"}},
        {{"--paper", "8x8", "a.dxf"}, {"--paper: \"8x8\"", "give --margins"}},
        {{"--paper", "90x90", "--save-paper", "Mine", "--list-papers"}, {"--save-paper", "--list-papers"}},
        {{"--format", "tiff", "a.dxf"}, {"--format", "tiff", "pdf, png, svg"}},
        {{"-o", "plan.jpg", "a.dxf"}, {"plan.jpg", "pdf, png, svg", "--format"}},
        {{"-o", "", "a.dxf"}, {"--output"}},
        {{"--dpi", "fine", "a.dxf"}, {"--dpi", "fine", "2400"}},
        {{"--dpi", "2401", "a.dxf"}, {"--dpi", "2401"}},
        {{"--dpi", "9", "a.dxf"}, {"--dpi", "from 10"}},
        {{"--dpi", "4294967496", "a.dxf"}, {"--dpi"}},
        {{"--lineweight-scale", "-1", "a.dxf"}, {"--lineweight-scale", "0 to 100"}},
        {{"--layers", ",", "a.dxf"}, {"--layers"}},
        {{"--portrait", "--landscape", "a.dxf"}, {"--portrait", "--landscape"}},
        {{"--fit", "--scale", "1:2", "a.dxf"}, {"--fit", "--scale"}},
        {{"-o", "x.pdf", "-t", "d", "a.dxf"}, {"--output", "--target-directory"}},
        {{"-o", "x.pdf", "a.dxf", "b.dxf"}, {"--output", "one drawing"}},
        {{"--lineweight-scale", "100.5", "a.dxf"}, {"--lineweight-scale", "0 to 100"}},
    };
    for (const auto& [arguments, told] : rows) {
        try {
            planOf(arguments);
            ADD_FAILURE() << arguments.join(' ').toStdString() << ": accepted";
        } catch (const UsageError& error) {
            for (const QString& part : told) {
                EXPECT_TRUE(QString::fromUtf8(error.what()).contains(part)) << error.what();
            }
        }
    }
}

TEST(OutputNames, FollowTheDrawings) {
    EXPECT_EQ(planOf({"/a/plan.v2.dxf", "b/PLAN.DXF"}).outputs, (QStringList{"plan.v2.pdf", "PLAN.pdf"}));
    EXPECT_EQ(planOf({"--format", "svg", "-t", "/out/", "a.dxf"}).outputs, QStringList{"/out/a.svg"});
    EXPECT_EQ(planOf({"-o", "x.png", "a.dxf"}).outputs, QStringList{"x.png"});
}

TEST(OutputNames, TwoDrawingsNeverShareOne) {
    EXPECT_THROW(planOf({"a/plan.dxf", "b/plan.dxf"}), UsageError);
    EXPECT_THROW(planOf({"a.dxf", "a.dxf"}), UsageError);
}

TEST(OutputNames, ADrawingIsNeverReplaced) {
    const TemporaryDirectory directory;
    const QString drawing = QString::fromStdString(directory.write("plan.dxf", "drawing"));
    const QString detour = QString::fromStdString(directory.path()) + "/./plan.dxf";
    EXPECT_THROW(planOf({"--format", "pdf", "-o", detour, drawing}), UsageError);

    const QString misnamed = QString::fromStdString(directory.write("plan.pdf", "drawing"));
    EXPECT_THROW(planOf({"-t", QString::fromStdString(directory.path()), misnamed}), UsageError);
}

} // namespace
} // namespace kelplot
