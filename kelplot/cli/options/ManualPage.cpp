// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/options/ManualPage.h"

#include "cli/options/OptionTable.h"

namespace kelplot {
namespace {

/// A text with the characters escaped that mean something to the typesetter.
QString escaped(const char* text) {
    QString result = QString::fromLatin1(text);
    result.replace(QLatin1Char('\\'), QStringLiteral("\\e")).replace(QLatin1Char('-'), QStringLiteral("\\-"));
    // At the start of a line these would begin a macro.
    const bool looksLikeMacro = result.startsWith(QLatin1Char('.')) || result.startsWith(QLatin1Char('\''));
    return looksLikeMacro ? QStringLiteral("\\&") + result : result;
}

QString entryOf(const OptionRow& row) {
    QString entry = QStringLiteral(".TP\n");
    if (row.shortName) {
        entry += QStringLiteral("\\fB\\-%1\\fR, ").arg(QLatin1String(row.shortName));
    }
    entry += QStringLiteral("\\fB\\-\\-%1\\fR").arg(escaped(row.name));
    if (row.valueName) {
        entry += QStringLiteral("=\\fI%1\\fR").arg(escaped(row.valueName));
    }
    return entry + QLatin1Char('\n') + escaped(row.description) + QLatin1Char('\n');
}

QString presetNames() {
    QStringList names;
    for (const OptionRow& row : optionRows()) {
        if (row.preset == Default::inSettings) {
            names << QStringLiteral("\\fB%1\\fR").arg(escaped(row.name));
        }
    }
    return names.join(QStringLiteral(", "));
}

} // namespace

QString manualPage() {
    QString page = QStringLiteral(R"(.TH KELPLOT 1
.SH NAME
kelplot \- plot DXF drawings to files or printers
.SH SYNOPSIS
.B kelplot
[\fIOPTION\fR]... \fIFILE\fR...
.SH DESCRIPTION
Plots each drawing to a file of its name beside it, fitted to an A4 sheet unless options say otherwise, and prints the
names of these files. A file that cannot be written whole is not written at all, and one that kelplot did not write is
replaced only with \fB\-\-force\fR. A \fIFILE\fR of \- is standard input, whose plot goes to standard output unless
\fB\-\-output\fR names a file.
.SH OPTIONS
)");
    for (const OptionRow& row : optionRows()) {
        page += entryOf(row);
    }
    return page + QStringLiteral(R"(.SH FILES
.TP
.I Drivers/kelplot.ini
Beside the program, or else in the installation's
.IR share/kelplot :
defaults for options (section "Defaults", one option=value per line), pens and fonts.
It may set these options: %1.
.TP
.I $XDG_CONFIG_HOME/kelplot/kelplot.ini
Your own defaults, which take precedence key by key. The papers that you save are in papers.ini beside it.
.TP
.I $XDG_CACHE_HOME/kelplot
Copies of lists of papers that are quicker to read. They can be removed at any time.
.SH EXIT STATUS
.TP
0
Done.
.TP
1
Wrong usage.
.TP
2
A drawing, or a file of papers, pens or defaults, cannot be read.
.TP
3
A file is not a drawing or is truncated, or there were warnings under \-\-strict.
.TP
4
The output failed.
.TP
5
Printing failed: the printer is not known or refuses jobs, or the job was aborted or cancelled.
.PP
With several drawings, the highest status counts.
)")
                      .arg(presetNames());
}

} // namespace kelplot
