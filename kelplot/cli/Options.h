#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>

#include "device/OutputDevice.h"
#include "page/PageSetup.h"
#include "plot/DrawingPlot.h"

namespace kelplot {

/// Why a command line cannot be carried out; the text names the option and what it allows.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

enum class Action { plot, listLayers, showHelp, showVersion };

/// A command line, checked.
struct Options {
    Action action = Action::plot;
    QStringList inputs;
    QString outputFile;      ///< for the only input; empty: a name after the input's
    QString outputDirectory; ///< empty: the current one
    OutputFormat format = OutputFormat::pdf;
    int dotsPerInch = 200;
    PageOptions page;
    PlotStyleOptions style;
    QStringList layers;         ///< patterns; empty: all
    QStringList excludedLayers; ///< patterns
    bool forceProgress = false;
    bool quiet = false;
    bool strict = false;
};

/// Reads a command line, the program's name first, or throws `UsageError`.
Options optionsFromArguments(const QStringList& arguments);

/// The text for `--help`.
QString helpText();

} // namespace kelplot
