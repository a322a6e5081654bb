// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/options/OptionTable.h"

#include "base/Numbers.h"
#include "page/PageSetup.h"

namespace kelplot {
namespace {

constexpr int smallestDpi = 10;
constexpr int largestDpi = 2400;
constexpr int largestPixelWidth = 1000000;
constexpr double largestWeightScale = 100.0;

[[noreturn]] void refuse(const QString& value, const QString& allowed) {
    throw UsageError(QStringLiteral("\"%1\" is not allowed; give %2").arg(value, allowed));
}

/// The value that was read; refuses the text when there is none.
template <typename Value>
Value orRefuse(const std::optional<Value>& read, const QString& value, const QString& allowed) {
    if (!read) {
        refuse(value, allowed);
    }
    return *read;
}

QString orRefuseEmpty(const QString& value, const QString& allowed) {
    if (value.isEmpty()) {
        refuse(value, allowed);
    }
    return value;
}

void setOutputFile(Request& request, const QString& value) {
    request.outputFile = orRefuseEmpty(value, QStringLiteral("a file name"));
}

void setOutputDirectory(Request& request, const QString& value) {
    request.outputDirectory = orRefuseEmpty(value, QStringLiteral("a directory"));
}

void setFormat(Request& request, const QString& value) {
    request.format = orRefuse(formatFromName(value), value, QStringLiteral("one of ") + formatNames());
}

void setPaper(Request& request, const QString& value) {
    request.paper.text = orRefuseEmpty(value, QStringLiteral("a name or WIDTHxHEIGHT in millimetres"));
}

void setSavedPaper(Request& request, const QString& value) {
    request.savedPaper = orRefuseEmpty(value, QStringLiteral("a name"));
}

void setPens(Request& request, const QString& value) {
    request.pensFiles = QStringList(orRefuseEmpty(value, QStringLiteral("a file name")));
}

void setPlotStyle(Request& request, const QString& value) {
    request.plotStyleFile = orRefuseEmpty(value, QStringLiteral("a file name or none"));
}

void setPatterns(Request& request, const QString& value) {
    request.patternFiles << orRefuseEmpty(value, QStringLiteral("a file name"));
}

void setTexts(Request& request, const QString& value) {
    const bool fonts = value == QLatin1String("fonts");
    if (!fonts && value != QLatin1String("outlines")) {
        refuse(value, QStringLiteral("outlines or fonts"));
    }
    request.texts = fonts ? TextMode::fonts : TextMode::outlines;
}

void setMargins(Request& request, const QString& value) {
    request.margins = orRefuse(marginsFromText(value.toStdString()), value,
                               QStringLiteral("one length or LEFT,TOP,RIGHT,BOTTOM in millimetres, none below 0"));
}

void setScale(Request& request, const QString& value) {
    request.scale = orRefuse(scaleFromText(value.toStdString()), value,
                             QStringLiteral("a ratio such as 1:50 or 2:1, or a factor above 0 such as 0.5"));
}

void setUnits(Request& request, const QString& value) {
    constexpr struct {
        const char* name;
        double millimetres;
    } units[] = {{"mm", 1.0}, {"cm", 10.0}, {"m", 1000.0}, {"in", 25.4}, {"ft", 304.8}, {"none", 1.0}};
    for (const auto& unit : units) {
        if (value.compare(QLatin1String(unit.name), Qt::CaseInsensitive) == 0) {
            request.millimetresPerUnit = unit.millimetres;
            return;
        }
    }
    refuse(value, QStringLiteral("mm, cm, m, in, ft, or none for millimetres"));
}

void setWindow(Request& request, const QString& value) {
    request.window =
        orRefuse(windowFromText(value.toStdString()), value,
                 QStringLiteral("X1,Y1,X2,Y2 in drawing units, two opposite corners of an area that is not empty"));
}

void setWeightScale(Request& request, const QString& value) {
    const auto factor = numberFromText(value.toStdString());
    if (!factor || *factor < 0.0 || *factor > largestWeightScale) {
        refuse(value, QStringLiteral("a factor from 0 to 100"));
    }
    request.lineWeightScale = *factor;
}

void setDpi(Request& request, const QString& value) {
    bool isNumber = false;
    const int dpi = value.toInt(&isNumber);
    if (!isNumber || dpi < smallestDpi || dpi > largestDpi) {
        refuse(value, QStringLiteral("a whole number from %1 to %2").arg(smallestDpi).arg(largestDpi));
    }
    request.dotsPerInch = dpi;
}

void setPixelWidth(Request& request, const QString& value) {
    bool isNumber = false;
    const int width = value.toInt(&isNumber);
    if (!isNumber || width < 1 || width > largestPixelWidth) {
        refuse(value, QStringLiteral("a whole number from 1 to %1").arg(largestPixelWidth));
    }
    request.pixelWidth = width;
}

template <PixelKind kind>
void usePixels(Request& request, const QString& /*value*/) {
    request.pixels = kind;
}

QStringList layerPatterns(const QString& value) {
    QStringList patterns = value.split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (patterns.isEmpty()) {
        refuse(value, QStringLiteral("layer names separated by commas; * stands for any text"));
    }
    return patterns;
}

void setLayout(Request& request, const QString& value) {
    request.layout = orRefuseEmpty(value, QStringLiteral("the name of a layout, model or all"));
}

void setPrinter(Request& request, const QString& value) {
    request.printer = orRefuseEmpty(value, QStringLiteral("the name of a printer; see --list-printers"));
}

void setCopies(Request& request, const QString& value) {
    constexpr int mostCopies = 9999;
    bool isNumber = false;
    request.copies = value.toInt(&isNumber);
    if (!isNumber || request.copies < 1 || request.copies > mostCopies) {
        refuse(value, QStringLiteral("a number from 1 to 9999"));
    }
}

void setSides(Request& request, const QString& value) {
    constexpr struct {
        const char* name;
        Sides sides;
    } names[] = {{"one", Sides::one}, {"long", Sides::twoLongEdge}, {"short", Sides::twoShortEdge}};
    for (const auto& known : names) {
        if (value == QLatin1String(known.name)) {
            request.sides = known.sides;
            return;
        }
    }
    refuse(value, QStringLiteral("one, or for both sides of the paper: long or short, the edge to turn it over"));
}

void setTilePaper(Request& request, const QString& value) {
    request.tilePaper = orRefuseEmpty(value, QStringLiteral("a name or WIDTHxHEIGHT in millimetres"));
}

void setTileOverlap(Request& request, const QString& value) {
    constexpr double largestOverlap = 1000.0;
    const auto overlap = numberFromText(value.toStdString());
    if (!overlap || *overlap < 0.0 || *overlap > largestOverlap) {
        refuse(value, QStringLiteral("millimetres from 0 to 1000"));
    }
    request.tileOverlap = *overlap;
}

void setShell(Request& request, const QString& value) {
    if (value != QLatin1String("bash") && value != QLatin1String("zsh")) {
        refuse(value, QStringLiteral("bash or zsh"));
    }
    request.shell = value;
    request.action = Action::showCompletion;
}

void addLayers(Request& request, const QString& value) {
    request.layers += layerPatterns(value);
}

void addExcludedLayers(Request& request, const QString& value) {
    request.excludedLayers += layerPatterns(value);
}

template <bool Request::*Field>
void choose(Request& request, const QString& /*value*/) {
    request.*Field = true;
}

template <Orientation orientation>
void turnPaper(Request& request, const QString& /*value*/) {
    request.orientation = orientation;
}

void fit(Request& request, const QString& /*value*/) {
    request.scale.reset();
}

template <Action action>
void act(Request& request, const QString& /*value*/) {
    request.action = action;
}

const std::vector<OptionRow> rows = {
    {"o", "output", "FILE",
     "Write to FILE, or to standard output if it is -. Several drawings become the pages of one PDF or HP-GL/2 file.",
     setOutputFile},
    {"t", "target-directory", "DIR",
     "Write the plots to DIR, each with the name of its drawing; it is made if need be. [beside the drawings]",
     setOutputDirectory},
    {"d", "printer", "PRINTER", "Print the plots instead of writing them to files.", setPrinter},
    {"n", "copies", "COPIES", "With --printer: how many. [1]", setCopies},
    {nullptr, "sides", "SIDES", "With --printer: one, or both by the long or short edge. [as the printer is set up]",
     setSides, Default::inSettings, "one long short"},
    {nullptr, "no-wait", nullptr, "With --printer: do not wait until the job has left the queue.",
     choose<&Request::doesNotWait>},
    {nullptr, "force", nullptr, "Replace files too that kelplot did not write.", choose<&Request::replaceAny>},
    {nullptr, "format", "FORMAT",
     "pdf, png, svg or hpgl; by default as the ending of -o FILE says (.plt for hpgl), or else pdf.", setFormat,
     Default::inSettings, "pdf png svg hpgl"},
    {nullptr, "paper", "PAPER", "A name such as A3 or Letter, or WIDTHxHEIGHT in millimetres. [A4]", setPaper,
     Default::inSettings},
    {nullptr, "save-paper", "NAME", "Keep the size given with --paper, and its margins, under NAME.", setSavedPaper},
    {nullptr, "margins", "MM", "One margin for all edges, or LEFT,TOP,RIGHT,BOTTOM. [as the paper's]", setMargins,
     Default::inSettings},
    {nullptr, "scale", "SCALE", "Plot to scale: 1:50, 2:1 or 0.5.", setScale, Default::inSettings},
    {nullptr, "units", "UNIT", "What a drawing unit is: mm, cm, m, in or ft. [as the drawing says]", setUnits,
     Default::inSettings, "mm cm m in ft none"},
    {nullptr, "window", "X1,Y1,X2,Y2", "Plot only this part: two opposite corners in drawing units.", setWindow},
    {nullptr, "pens", "FILE", "Take widths, colours and screening by colour number from FILE.", setPens,
     Default::inSettings},
    {nullptr, "plot-style", "FILE",
     "Plot by the plot styles of FILE (CTB or STB), or by none. [as the layout says, from beside the drawing]",
     setPlotStyle},
    {nullptr, "patterns", "FILE", "Take the lines of hatch patterns that a drawing only names from FILE.", setPatterns},
    {nullptr, "lineweight-scale", "FACTOR", "Multiply all line weights. [1]", setWeightScale, Default::inSettings},
    {nullptr, "text", "MODE", "fonts, for texts that can be searched, or outlines. [fonts in PDF files, else outlines]",
     setTexts, Default::inSettings, "outlines fonts"},
    {nullptr, "layout", "NAME", "Plot a layout, model or all. [as the drawing was saved]", setLayout, Default::none,
     "model all"},
    {nullptr, "layers", "LIST", "Plot only these layers: names separated by commas, * for any text.", addLayers},
    {nullptr, "exclude-layers", "LIST", "Leave these layers out.", addExcludedLayers},
    {nullptr, "dpi", "N", "Dots per inch of a PNG image. [200]", setDpi, Default::inSettings},
    {nullptr, "width", "PIXELS", "Width of a PNG image, in place of --dpi.", setPixelWidth},
    {nullptr, "grey", nullptr, "A PNG image in shades of grey.", usePixels<PixelKind::grey>},
    {nullptr, "bilevel", nullptr,
     "A PNG image in black and white alone: lines without smoothing, colours as patterns of dots.",
     usePixels<PixelKind::bilevel>},
    {nullptr, "portrait", nullptr, "Upright paper; by default as suits the drawing.", turnPaper<Orientation::portrait>},
    {nullptr, "landscape", nullptr, "Paper on its side; by default as suits the drawing.",
     turnPaper<Orientation::landscape>},
    {nullptr, "fit", nullptr, "Plot as large as the paper allows. [default]", fit},
    {nullptr, "center", nullptr, "With --scale: in the middle, not at the lower left.", choose<&Request::centred>},
    {nullptr, "tile", "PAPER", "Spread the sheet over pages of this paper, with marks to put them together.",
     setTilePaper},
    {nullptr, "tile-overlap", "MM", "How much neighbouring pages share. [10]", setTileOverlap},
    {nullptr, "monochrome", nullptr, "Black ink only.", choose<&Request::monochrome>},
    {nullptr, "progress", nullptr, "Show progress even if standard error is not a terminal.",
     choose<&Request::forceProgress>},
    {nullptr, "quiet", nullptr, "No progress and no warnings.", choose<&Request::quiet>},
    {nullptr, "strict", nullptr, "Treat warnings as failures: write nothing and exit with 3.",
     choose<&Request::strict>},
    {nullptr, "preview", nullptr, "Show the pages in a window, to look at before they are printed or saved.",
     act<Action::preview>},
    {nullptr, "list-layers", nullptr, "Print the layers and their state; plot nothing.", act<Action::listLayers>},
    {nullptr, "list-layouts", nullptr, "Print the names of the layouts; plot nothing.", act<Action::listLayouts>},
    {nullptr, "list-papers", nullptr, "Print the papers: name, size and margins in millimetres; plot nothing.",
     act<Action::listPapers>},
    {nullptr, "list-printers", nullptr, "Print the printers with their state; plot nothing.",
     act<Action::listPrinters>},
    {nullptr, "json", nullptr, "Print what became of each page as JSON; with --list-papers, the papers.",
     choose<&Request::json>},
    {nullptr, "manual", nullptr, "Print the manual page, for man.", act<Action::showManual>},
    {nullptr, "completion", "SHELL", "Print the completion of options for bash or zsh.", setShell, Default::none,
     "bash zsh"},
    {nullptr, "version", nullptr, "Print the version.", act<Action::showVersion>},
    {"h", "help", nullptr, "Print the commonest options and examples.", act<Action::showHelp>},
};

} // namespace

const std::vector<OptionRow>& optionRows() {
    return rows;
}

void applyOption(const OptionRow& row, const QString& value, Request& request) {
    try {
        row.apply(request, value);
    } catch (const UsageError& error) {
        throw UsageError(QStringLiteral("--%1: %2").arg(QLatin1String(row.name), QString::fromUtf8(error.what())));
    }
}

} // namespace kelplot
