// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "settings/FontSection.h"
#include "settings/PatternTable.h"
#include "settings/PenSection.h"
#include "settings/SettingsFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

TEST(PenSection, GoesBeforeAnotherPenByPen) {
    const TemporaryDirectory directory;
    const PenTable table =
        penTableFrom({QString::fromStdString(directory.write("device.ini", "[Pens]\n1=1\n2=2\nother=3\n")),
                      QString::fromStdString(directory.write("own.ini", "[Pens]\n2=4\nother=5\n"))});
    for (const auto& [number, width] : {std::pair(1U, 1.0), {2, 4.0}, {3, 5.0}}) {
        EXPECT_EQ(table.ruleFor({Colour::Kind::index, number}).width, width) << number;
    }
}

QString listOf(const QVector<FontStandIn>& standIns) {
    QStringList list;
    for (const FontStandIn& standIn : standIns) {
        list << standIn.family + (standIn.widthRatio == 1.0 ? "" : QString(" x %1").arg(standIn.widthRatio));
    }
    return list.join('|');
}

QString rulesOf(const FontTable& table, const char* key) {
    const FontRule* const rule = table.find(key);
    if (!rule) {
        return QStringLiteral("none");
    }
    return listOf(rule->standIns) + (rule->bold ? " bold" : "") + (rule->italic ? " italic" : "") +
           (rule->symbols ? " symbols" : "");
}

TEST(FontSection, TheUsersFontsGoBeforeTheDevices) {
    const TemporaryDirectory directory;
    const std::string device = directory.write("device.ini", "[Fonts]\nother=A, B*0.9\nsimplex=C\nGDT=symbols, D\n"
                                                             "arial bold = bold, E F, italic,, G * 1.25\n");
    const std::string own = directory.write("own.ini", "[Fonts]\nsimplex=H\n");
    FontTable table;
    addFonts(QString::fromStdString(device), table);
    addFonts(QString::fromStdString(own), table);
    addFonts(QString::fromStdString(directory.write("none.ini", "[Pens]\n")), table);
    EXPECT_EQ(listOf(table.others()), "A|B x 0.9");
    EXPECT_EQ(rulesOf(table, "simplex"), "H");
    EXPECT_EQ(rulesOf(table, "gdt"), "D symbols");
    EXPECT_EQ(rulesOf(table, "arial bold"), "E F|G x 1.25 bold italic");
    EXPECT_EQ(rulesOf(table, "txt"), "none");
}

TEST(PatternFile, StatesTheUnitOfItsLengths) {
    const TemporaryDirectory directory;
    PatternTable table;
    addPatterns(QString::fromStdString(directory.write("own.pat", "*a\n0, 0,0, 0,2\n; %units=inch\n*B, twice\n"
                                                                  "90, 1,3, 0,2, 1,-0.5\n0, 0,0, 0,1\n")),
                table);
    EXPECT_EQ(table.find("A")->front().offset.y, 2.0);
    ASSERT_EQ(table.find("b")->size(), 2U);
    EXPECT_NEAR(table.find("b")->front().offset.x, -50.8, 1e-9);
    EXPECT_EQ(table.find("b")->front().base.x, 25.4);
    EXPECT_NEAR(table.find("b")->front().base.y, 76.2, 1e-9);
    EXPECT_EQ(table.find("b")->front().dashes, (std::vector<double>{25.4, -12.7}));
}

TEST(PenAndFontSections, FaultsAreToldWithFileAndLine) {
    const std::pair<const char*, const char*> rows[] = {
        {"[Defaults]\ndpi=200\n", "[Pens]"},
        {"[Pens]\n1 0.35\n", "1 0.35"},
        {"[Pens]\n256=1\n", "pen 256"},
        {"[Pens]\nred=1\n", "pen red"},
        {"[Pens]\n3=thin\n", "pen 3=thin: \"thin\""},
        {"[Pens]\n3=-1\n", "\"-1\""},
        {"[Pens]\n3=1,blue\n", "\"blue\""},
        {"[Pens]\n3=1,-1FFFF\n", "colour"},
        {"[Pens]\n3=1,black,101\n", "\"101\""},
        {"[Pens]\nother=0,35,black,50\n", "pen other=0,35,black,50"},
        {"[Pens]\n0=1\n", "pen 0"},
        {"[Pens]\n3=100.5\n", "\"100.5\""},
        {"[Fonts]\ntxt=A, B*wide\n", "font B*wide"},
        {"[Fonts]\ntxt=A*0.01\n", "font A*0.01"},
    };
    for (const auto& [text, part] : rows) {
        const TemporaryDirectory directory;
        const QString path = QString::fromStdString(directory.write("pens.ini", text));
        FontTable fonts;
        try {
            addFonts(path, fonts);
            penTableFrom({path});
            ADD_FAILURE() << text << ": accepted";
        } catch (const SettingsError& error) {
            const std::string told = error.what();
            EXPECT_NE(told.find("pens.ini: "), std::string::npos) << told;
            EXPECT_NE(told.find(part), std::string::npos) << told;
        }
    }
}

} // namespace
} // namespace kelplot
