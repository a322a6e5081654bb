// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "kelplot/PlotStyleBytes.h"
#include "settings/PlotStyleFile.h"
#include "settings/SettingsFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

PenTable tableOf(const std::string& bytes) {
    const TemporaryDirectory directory;
    return plotStylesFrom(QString::fromStdString(directory.write("styles.tab", bytes)));
}

/// What a rule states, in one line.
std::string text(const PenRule& rule) {
    std::ostringstream out;
    if (rule.width) {
        out << " width " << *rule.width;
    }
    if (rule.ink) {
        out << " ink " << std::hex << *rule.ink << std::dec;
    }
    out << (rule.screening != 100 ? " screening " + std::to_string(rule.screening) : "") << (rule.grey ? " grey" : "");
    if (rule.lineType) {
        out << (rule.fitsLineType ? " fitted" : "") << " line";
        for (const double length : rule.lineType->pattern) {
            out << ' ' << length;
        }
    }
    out << (rule.ends ? " ends " + std::to_string(*rule.ends) : "")
        << (rule.joins ? " joins " + std::to_string(*rule.joins) : "")
        << (rule.fill ? " fill " + std::to_string(*rule.fill) : "");
    return out.str();
}

const char* const widths = "custom_lineweight_table{\r\n 0=0.0\r\n 1=0.05\r\n 2=0.09\r\n}\r\n";

TEST(PlotStyleFile, StylesSayHowTheirColoursArePlotted) {
    // The highest byte of a colour is its kind, then come red, green and blue: C2 10 20 30 is -1039130576.
    const std::pair<const char*, const char*> rows[] = {
        {"color=-1\n color_policy=1\n screen=100\n linepattern_size=0.5\n linetype=31\n adaptive_linetype=TRUE\n"
         "lineweight=0\n fill_style=73\n end_style=4\n join_style=5",
         ""},
        {"color=-1039130576\r\n\tcolor_policy=7", " ink 302010 grey"},
        {"color=-1006632961", ""},       // C3 FF FF FF
        {"color=-1023410176", " ink 0"}, // C3 00 00 00
        {"lineweight=2\n screen=40", " width 0.09 screening 40"},
        {"lineweight=3\n screen=101", ""},
        {"linetype=0", " line"},
        {"linetype=19\n linepattern_size=0.5\n adaptive_linetype=TRUE", " fitted line 12 -1.5 0 -1.5"},
        {"linetype=18\n linepattern_size=1\n adaptive_linetype=FALSE", " line 12 -18"},
        {"linetype=18\n linepattern_size=-1", " line 6 -9"}, // the usual size is a half
        {"linetype=18\n linepattern_size=1001", " line 6 -9"},
        {"linetype=32\n linepattern_size=-1", ""},
        {"end_style=0\n join_style=0\n fill_style=64", " ends 0 joins 0 fill 0"},
        {"end_style=3\n join_style=3\n fill_style=72", " ends 2 joins 2 fill 8"},
        {"description=\"a{\nend_style=1", " ends 1"},
    };
    for (const auto& [values, rule] : rows) {
        const PenTable table = tableOf(plotStyleBytes(
            "CTB", widths + std::string("plot_style{\n 4{\n name=\"Color_9\n") + values + "\n }\n}\n" + '\0'));
        EXPECT_EQ(text(table.ruleFor({Colour::Kind::index, 9})), rule) << values;
        EXPECT_EQ(text(table.ruleFor({Colour::Kind::index, 5})), "") << values;
        EXPECT_FALSE(table.goesByNames());
    }
}

TEST(PlotStyleFile, StylesGoByTheirNames) {
    const PenTable table = tableOf(
        plotStyleBytes("STB", "plot_style{\n0{\nname=\"Normal\nscreen=90\n}\n1{\nname=\"Ä b\nscreen=50\n}\n}\n"));
    ASSERT_TRUE(table.goesByNames());
    EXPECT_EQ(table.ruleFor(QStringLiteral("ä B")).screening, 50);
    EXPECT_EQ(table.ruleFor(QStringLiteral("none of them")).screening, 90);
}

TEST(PlotStyleFile, IsRefusedWithItsNameAndTheReason) {
    const std::string sound = plotStyleBytes("CTB", "plot_style{\n0{\nscreen=9\n}\n}\n");
    std::string changed = sound;
    changed[changed.size() - 6] = static_cast<char>(~changed[changed.size() - 6]);
    const std::pair<std::string, const char*> rows[] = {
        {"", "not a table"},
        {"[Pens]\n1=2\n", "not a table"},
        {plotStyleBytes("PC3", "plot_style{\n}\n"), "not a table"},
        {sound.substr(0, 50), "cut off"},
        {sound.substr(0, sound.size() - 5), "cut off"},
        {changed, "damaged"},
        {plotStyleBytes("CTB", "plot_style{\n0{\nscreen 9\n}\n}\n"), "line 3"},
        {plotStyleBytes("CTB", "plot_style{\n0{\nscreen=9\n}\n"), "no end"},
        {plotStyleBytes("CTB", "}\n"), "line 1"},
        {plotStyleBytes("CTB", "a{\n}\n"), "no plot styles"},
        {plotStyleBytes("CTB", std::string(size_t{1} << 23, '\n')), "too large"},
        {std::string(size_t{2} << 20, 'x'), "too large"},
    };
    for (const auto& [bytes, reason] : rows) {
        try {
            tableOf(bytes);
            ADD_FAILURE() << reason << ": accepted";
        } catch (const SettingsError& error) {
            const std::string told = error.what();
            EXPECT_NE(told.find("styles.tab: "), std::string::npos) << told;
            EXPECT_NE(told.find(reason), std::string::npos) << told << " instead of " << reason;
        }
    }
}

} // namespace
} // namespace kelplot
