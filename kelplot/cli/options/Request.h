// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>

#include "device/OutputDevice.h"
#include "page/PageSetup.h"
#include "plot/text/TextMode.h"
#include "print/PrintJob.h"
#include "settings/FontTable.h"

namespace kelplot {

/// Why a command line cannot be carried out; the text names the option and what it allows.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

enum class Action {
    plot,
    preview,
    savePaper,
    listLayers,
    listLayouts,
    listPapers,
    listPrinters,
    showHelp,
    showVersion,
    showManual,
    showCompletion
};

/// A paper as it was asked for.
struct AskedPaper {
    QString text = QStringLiteral("A4"); ///< a name or a size
    QString origin;                      ///< where it was asked for, for messages; empty: the default
};

/// What the settings and the command line ask for: each value is valid by itself, and no file but theirs is read.
struct Request {
    Action action = Action::plot;
    QStringList inputs;
    QString shell;           ///< whose completion is asked for
    QStringList given;       ///< the options of the command line, by their long names
    QStringList warnings;    ///< about the settings
    QString outputFile;      ///< "-": standard output; empty: named after the input
    QString outputDirectory; ///< empty: that of the input
    bool replaceAny = false; ///< files too that kelplot did not write
    OutputFormat format = OutputFormat::pdf;
    int dotsPerInch = 200;
    int pixelWidth = 0; ///< of an image; 0: as the dots per inch say
    PixelKind pixels = PixelKind::colour;
    AskedPaper paper;
    std::optional<Margins> margins; ///< none: those of the paper
    QString marginsOrigin;          ///< where they were asked for, for messages
    Orientation orientation = Orientation::automatic;
    std::optional<double> scale; ///< none: as large as the page allows
    bool centred = false;
    QString tilePaper;         ///< over whose pages the sheet is spread; empty: it is plotted whole
    double tileOverlap = 10.0; ///< millimetres
    std::optional<Box2> window;
    QString savedPaper;       ///< the name under which the paper's size is to be kept; empty: not at all
    QStringList pensFiles;    ///< the last to state a pen counts; empty: the drawing's pens
    QString plotStyleFile;    ///< a table of plot styles, or "none"; empty: those of the layouts
    QStringList patternFiles; ///< the last to state a pattern counts
    bool monochrome = false;
    std::optional<double> millimetresPerUnit; ///< none: as the drawing says
    double lineWeightScale = 1.0;
    std::optional<TextMode> texts; ///< none: as suits the format
    FontTable fonts;
    QString layout;             ///< the name of a layout, "model" or "all"; empty: what the drawing was saved in
    QStringList layers;         ///< patterns; empty: all
    QStringList excludedLayers; ///< patterns
    QString printer;            ///< empty: plots go to files
    int copies = 1;
    Sides sides = Sides::asSetUp;
    bool doesNotWait = false; ///< until the job has left the queue
    bool json = false;        ///< papers, and what became of plots, are printed as JSON
    bool forceProgress = false;
    bool quiet = false;
    bool strict = false;
};

} // namespace kelplot
