// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/options/HelpPage.h"

#include <algorithm>
#include <iterator>

#include "cli/options/OptionTable.h"

namespace kelplot {
namespace {

constexpr const char* commonest[] = {"output", "target-directory", "format",  "paper",     "scale",
                                     "layout", "layers",           "printer", "monochrome"};

/// A line of help: what to type, and what it does, from the same column on and broken within the line.
QString entry(const QString& typed, const QString& meaning) {
    constexpr int column = 28;
    constexpr int lineLength = 79;
    QString text = QStringLiteral("  ") + typed.leftJustified(column - 2);
    int length = text.size();
    for (const QString& word : meaning.split(QLatin1Char(' '))) {
        if (length + 1 + word.size() > lineLength) {
            text += QLatin1Char('\n') + QString(column, QLatin1Char(' '));
            length = column;
        }
        text += QLatin1Char(' ') + word;
        length += 1 + word.size();
    }
    return text + QLatin1Char('\n');
}

QString entryOf(const OptionRow& row) {
    QString typed = row.shortName ? QStringLiteral("-%1, ").arg(QLatin1String(row.shortName)) : QString();
    typed += QStringLiteral("--") + QLatin1String(row.name);
    if (row.valueName) {
        typed += QLatin1Char(' ') + QLatin1String(row.valueName);
    }
    return entry(typed, QString::fromLatin1(row.description));
}

} // namespace

QString helpPage() {
    QString text = QStringLiteral(R"(Usage: kelplot [OPTION]... FILE...
Plots DXF drawings to PDF, PNG, SVG or HP-GL/2 files, or prints them.

  kelplot plan.dxf                          plan.pdf beside it, fitted to A4
  kelplot --paper A1 --scale 1:50 plan.dxf  to scale
  kelplot --layout all plan.dxf             all layouts, as pages of one file
  kelplot -o book.pdf a.dxf b.dxf           two drawings, as pages of one file
  kelplot -o plan.png --dpi 150 plan.dxf    a picture
  kelplot --paper A0 --tile A4 plan.dxf     a large sheet over small pages

)");
    for (const OptionRow& row : optionRows()) {
        if (std::any_of(std::begin(commonest), std::end(commonest),
                        [&](const char* name) { return QLatin1String(name) == QLatin1String(row.name); })) {
            text += entryOf(row);
        }
    }
    return text + QStringLiteral(R"(
Exit status: 0 done; 1 wrong usage; 2 a drawing or a file of settings cannot be
read; 3 a file is no drawing or is truncated; 4 the output failed; 5 printing
failed.
All options: man kelplot
)");
}

} // namespace kelplot
