// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "settings/FontFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

QString rulesOf(const FontTable& table, const char* key) {
    const FontRule* const rule = table.find(key);
    if (!rule) {
        return QStringLiteral("none");
    }
    return rule->families.join('|') + (rule->bold ? " bold" : "") + (rule->italic ? " italic" : "") +
           (rule->symbols ? " symbols" : "");
}

TEST(FontFile, TheUsersFontsGoBeforeTheDevices) {
    const TemporaryDirectory directory;
    const std::string device = directory.write("device.ini", "[Fonts]\nother=A, B\nsimplex=C\nGDT=symbols, D\n"
                                                             "arial bold = bold, E F, italic,, G\n");
    const std::string own = directory.write("own.ini", "[Fonts]\nsimplex=H\n");
    FontTable table;
    addFonts(QString::fromStdString(device), table);
    addFonts(QString::fromStdString(own), table);
    addFonts(QString::fromStdString(directory.write("none.ini", "[Pens]\n")), table);
    EXPECT_EQ(table.others(), QStringList({"A", "B"}));
    EXPECT_EQ(rulesOf(table, "simplex"), "H");
    EXPECT_EQ(rulesOf(table, "gdt"), "D symbols");
    EXPECT_EQ(rulesOf(table, "arial bold"), "E F|G bold italic");
    EXPECT_EQ(rulesOf(table, "txt"), "none");
}

} // namespace
} // namespace kelplot
