// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "cli/options/Request.h"
#include "page/LayoutPage.h"
#include "page/Tiling.h"
#include "plot/entity/PlotStyleOptions.h"
#include "print/PrintJob.h"
#include "settings/PaperTable.h"

namespace kelplot {

/// A file that is to be written, and the drawings whose pages it is to hold.
struct PlannedFile {
    QString path; ///< "-": standard output
    QString title;
    QStringList inputs;
};

/// What a request comes to, with papers, pens and file names looked up: all that plotting needs to know.
struct PlotPlan {
    std::vector<PlannedFile> files; ///< in the order of their drawings
    QString printer;                ///< to which they go instead; empty: they are files
    PrintOptions print;             ///< without title and paper, which are those of each file
    bool waitsForPrinter = true;
    QString madeFolder;   ///< that is made if it is not there; empty: none
    QStringList warnings; ///< about the papers
    OutputFormat format = OutputFormat::pdf;
    int dotsPerInch = 200;
    int pixelWidth = 0; ///< as in the request
    PixelKind pixels = PixelKind::colour;
    PageOptions page;
    StatedPage statedPage;
    std::optional<Tiling> tiling;             ///< none: the sheets are plotted whole
    QString layout;                           ///< as in the request
    std::optional<double> millimetresPerUnit; ///< of model space; none: as the drawing says
    PlotStyleOptions style;
    QString plotStyleFile;        ///< whose plot styles the pens are; empty: none
    bool layoutPlotStyles = true; ///< where a layout names a table of plot styles, its pens go before those of `style`
    QStringList layers;           ///< patterns; empty: all
    QStringList excludedLayers;   ///< patterns
    bool strict = false;
    QString savedName;                   ///< of the paper to save
    std::optional<PaperSize> savedPaper; ///< none: no paper is saved
};

/// Works out what a request to plot, or to save a paper, comes to. Throws `UsageError` for papers that are unknown or
/// leave no room, where two inputs would share an output, and where an output would replace an input; `OutputError`
/// where it would replace what is no plot of kelplot's; `SettingsError` for a faulty file of papers or pens.
PlotPlan planFor(const Request& request);

/// Saves the plan's paper to the user's own paper file, and returns what to tell the user. Throws `SettingsError`.
QString savePaper(const PlotPlan& plan);

} // namespace kelplot
