// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>

#include "device/OutputDevice.h"
#include "keldriver/Paper.h"
#include "page/PageSetup.h"
#include "plot/DrawingPlot.h"

namespace kelplot {

/// Why a command line cannot be carried out; the text names the option and what it allows.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

enum class Action { plot, savePaper, listLayers, listPapers, showHelp, showVersion };

/// A command line, checked.
struct Options {
    Action action = Action::plot;
    QStringList inputs;
    QStringList warnings;    ///< about the settings
    QString outputFile;      ///< for the only input; empty: a name after the input's
    QString outputDirectory; ///< empty: the current one
    OutputFormat format = OutputFormat::pdf;
    int dotsPerInch = 200;
    PageOptions page;
    PlotStyleOptions style;
    QString paper = QStringLiteral("A4"); ///< as asked: a name or a size
    QString paperOrigin;                  ///< where that was asked, for messages; empty: nowhere
    std::optional<Margins> margins;       ///< none: those of the paper
    QString marginsOrigin;                ///< where those were asked, for messages
    QStringList pensFiles;                ///< the last to state a pen counts; empty: the drawing's pens
    QString savedPaper;                   ///< the name under which the paper's size is to be kept; empty: not at all
    std::optional<PaperSize> savedRecord; ///< what is kept of it
    bool json = false;                    ///< lists are for programs
    QStringList layers;                   ///< patterns; empty: all
    QStringList excludedLayers;           ///< patterns
    bool forceProgress = false;
    bool quiet = false;
    bool strict = false;
};

/// Reads a command line, the program's name first, over the defaults of the settings files. Throws `UsageError`, or
/// `SettingsError` where the settings that the plot needs are at fault.
Options optionsFromArguments(const QStringList& arguments);

/// The text for `--help`.
QString helpText();

} // namespace kelplot
