// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/Options.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include "base/Numbers.h"
#include "cli/Defaults.h"
#include "cli/SettingsChoice.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr int smallestDpi = 10;
constexpr int largestDpi = 2400;
constexpr double largestWeightScale = 100.0;

[[noreturn]] void refuse(const QString& value, const QString& allowed) {
    throw UsageError(QStringLiteral("\"%1\" is not allowed; give %2").arg(value, allowed));
}

/// The value, where the reading function made one of it.
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

void setOutputFile(Options& options, const QString& value) {
    options.outputFile = orRefuseEmpty(value, QStringLiteral("a file name"));
}

void setOutputDirectory(Options& options, const QString& value) {
    options.outputDirectory = orRefuseEmpty(value, QStringLiteral("a directory"));
}

void setFormat(Options& options, const QString& value) {
    options.format = orRefuse(formatFromName(value), value, QStringLiteral("one of ") + formatNames());
}

void setPaper(Options& options, const QString& value) {
    options.paper = orRefuseEmpty(value, QStringLiteral("a name or WIDTHxHEIGHT in millimetres"));
}

void setSavedPaper(Options& options, const QString& value) {
    options.savedPaper = orRefuseEmpty(value, QStringLiteral("a name"));
}

void setPens(Options& options, const QString& value) {
    options.pensFiles = QStringList(orRefuseEmpty(value, QStringLiteral("a file name")));
}

void setTexts(Options& options, const QString& value) {
    const bool fonts = value == QLatin1String("fonts");
    if (!fonts && value != QLatin1String("outlines")) {
        refuse(value, QStringLiteral("outlines or fonts"));
    }
    options.style.texts = fonts ? TextMode::fonts : TextMode::outlines;
}

void setMargins(Options& options, const QString& value) {
    options.margins = orRefuse(marginsFromText(value.toStdString()), value,
                               QStringLiteral("one length or LEFT,TOP,RIGHT,BOTTOM in millimetres, none below 0"));
}

void setScale(Options& options, const QString& value) {
    options.page.scale = orRefuse(scaleFromText(value.toStdString()), value,
                                  QStringLiteral("a ratio such as 1:50 or 2:1, or a factor above 0 such as 0.5"));
}

void setWindow(Options& options, const QString& value) {
    options.page.window =
        orRefuse(windowFromText(value.toStdString()), value,
                 QStringLiteral("X1,Y1,X2,Y2 in drawing units, two opposite corners of an area that is not empty"));
}

void setWeightScale(Options& options, const QString& value) {
    const auto factor = numberFromText(value.toStdString());
    if (!factor || *factor < 0.0 || *factor > largestWeightScale) {
        refuse(value, QStringLiteral("a factor from 0 to 100"));
    }
    options.style.lineWeightScale = *factor;
}

void setDpi(Options& options, const QString& value) {
    bool isNumber = false;
    const int dpi = value.toInt(&isNumber);
    if (!isNumber || dpi < smallestDpi || dpi > largestDpi) {
        refuse(value, QStringLiteral("a whole number from %1 to %2").arg(smallestDpi).arg(largestDpi));
    }
    options.dotsPerInch = dpi;
}

QStringList layerPatterns(const QString& value) {
    QStringList patterns = value.split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (patterns.isEmpty()) {
        refuse(value, QStringLiteral("layer names with commas between them; * stands for any text"));
    }
    return patterns;
}

void addLayers(Options& options, const QString& value) {
    options.layers += layerPatterns(value);
}

void addExcludedLayers(Options& options, const QString& value) {
    options.excludedLayers += layerPatterns(value);
}

enum class Default { none, inSettings };

struct ValueOption {
    const char* shortName; ///< may be null
    const char* name;
    const char* valueName;
    const char* description;
    void (*apply)(Options& options, const QString& value);
    Default preset = Default::none; ///< whether kelplot.ini may state a value
};

constexpr ValueOption valueOptions[] = {
    {"o", "output", "FILE", "Write the plot to FILE.", setOutputFile},
    {"t", "target-directory", "DIR", "Write the plots to DIR, each with the name of its drawing.", setOutputDirectory},
    {nullptr, "format", "FORMAT", "pdf, png or svg; else the ending of -o FILE tells, else pdf.", setFormat,
     Default::inSettings},
    {nullptr, "paper", "PAPER", "A name such as A3 or Letter, or WIDTHxHEIGHT in millimetres. [A4]", setPaper,
     Default::inSettings},
    {nullptr, "save-paper", "NAME", "Keep the size given with --paper, and its margins, under NAME.", setSavedPaper},
    {nullptr, "margins", "MM", "One margin for all edges, or LEFT,TOP,RIGHT,BOTTOM. [as the paper's]", setMargins,
     Default::inSettings},
    {nullptr, "scale", "SCALE", "Plot to scale: 1:50, 2:1 or 0.5.", setScale, Default::inSettings},
    {nullptr, "window", "X1,Y1,X2,Y2", "Plot this part only; two opposite corners in drawing units.", setWindow},
    {nullptr, "pens", "FILE", "Take widths, colours and screening by colour number from FILE.", setPens,
     Default::inSettings},
    {nullptr, "lineweight-scale", "FACTOR", "Multiply all line weights. [1]", setWeightScale, Default::inSettings},
    {nullptr, "text", "MODE", "outlines, or fonts: texts of a PDF or SVG file can be searched. [outlines]", setTexts,
     Default::inSettings},
    {nullptr, "layers", "LIST", "Plot these layers only; names with commas between, * for any text.", addLayers},
    {nullptr, "exclude-layers", "LIST", "Leave these layers out.", addExcludedLayers},
    {nullptr, "dpi", "N", "Dots per inch of a PNG image. [200]", setDpi, Default::inSettings},
};

struct SwitchOption {
    const char* shortName; ///< may be null
    const char* name;
    const char* description;
    void (*apply)(Options& options);
};

void choosePortrait(Options& options) {
    options.page.orientation = Orientation::portrait;
}
void chooseLandscape(Options& options) {
    options.page.orientation = Orientation::landscape;
}
void chooseFit(Options& options) {
    options.page.scale.reset();
}
void chooseCentre(Options& options) {
    options.page.centred = true;
}
void chooseMonochrome(Options& options) {
    options.style.monochrome = true;
}
void chooseProgress(Options& options) {
    options.forceProgress = true;
}
void chooseQuiet(Options& options) {
    options.quiet = true;
}
void chooseStrict(Options& options) {
    options.strict = true;
}
void chooseLayerList(Options& options) {
    options.action = Action::listLayers;
}
void choosePaperList(Options& options) {
    options.action = Action::listPapers;
}
void chooseJson(Options& options) {
    options.json = true;
}
void chooseVersion(Options& options) {
    options.action = Action::showVersion;
}
void chooseHelp(Options& options) {
    options.action = Action::showHelp;
}

constexpr SwitchOption switchOptions[] = {
    {nullptr, "portrait", "Upright paper; else as suits the drawing.", choosePortrait},
    {nullptr, "landscape", "Paper on its side; else as suits the drawing.", chooseLandscape},
    {nullptr, "fit", "Plot as large as the paper allows. [default]", chooseFit},
    {nullptr, "center", "With --scale: in the middle, not at the lower left.", chooseCentre},
    {nullptr, "monochrome", "Black ink only.", chooseMonochrome},
    {nullptr, "progress", "Show the progress even where standard error is no terminal.", chooseProgress},
    {nullptr, "quiet", "No progress and no warnings.", chooseQuiet},
    {nullptr, "strict", "Treat warnings as failures: write nothing and exit with 3.", chooseStrict},
    {nullptr, "list-layers", "Print the layers and their state; plot nothing.", chooseLayerList},
    {nullptr, "list-papers", "Print the papers: name, size and margins in millimetres; plot nothing.", choosePaperList},
    {nullptr, "json", "With --list-papers: as JSON.", chooseJson},
    {nullptr, "version", "Print the version.", chooseVersion},
    {"h", "help", "Print this help.", chooseHelp},
};

constexpr const char* exclusivePairs[][2] = {
    {"portrait", "landscape"},      {"fit", "scale"},
    {"output", "target-directory"}, {"progress", "quiet"},
    {"save-paper", "list-papers"},  {"save-paper", "list-layers"},
};

template <typename Entry>
QStringList namesOf(const Entry& entry) {
    QStringList names;
    if (entry.shortName) {
        names << QString::fromLatin1(entry.shortName);
    }
    return names << QString::fromLatin1(entry.name);
}

void declareOptions(QCommandLineParser& parser) {
    for (const ValueOption& entry : valueOptions) {
        parser.addOption(
            {namesOf(entry), QString::fromLatin1(entry.description), QString::fromLatin1(entry.valueName)});
    }
    for (const SwitchOption& entry : switchOptions) {
        parser.addOption({namesOf(entry), QString::fromLatin1(entry.description)});
    }
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Drawings to plot."),
                                 QStringLiteral("FILE..."));
    parser.setApplicationDescription(QStringLiteral("Plots DXF drawings to PDF, PNG or SVG files."));
}

QString dashed(const QString& name) {
    return QStringLiteral("--") + name;
}

void applyValue(const ValueOption& entry, const QString& value, Options& options) {
    try {
        entry.apply(options, value);
    } catch (const UsageError& error) {
        throw UsageError(QStringLiteral("--%1: %2").arg(QLatin1String(entry.name), QString::fromUtf8(error.what())));
    }
}

void applyValues(const QCommandLineParser& parser, Options& options) {
    for (const ValueOption& entry : valueOptions) {
        for (const QString& value : parser.values(QString::fromLatin1(entry.name))) {
            applyValue(entry, value, options);
        }
    }
}

void applySwitches(const QCommandLineParser& parser, Options& options) {
    for (const SwitchOption& entry : switchOptions) {
        if (parser.isSet(QString::fromLatin1(entry.name))) {
            entry.apply(options);
        }
    }
}

/// What kelplot.ini may state.
std::vector<Preset> presets() {
    std::vector<Preset> found;
    for (const ValueOption& entry : valueOptions) {
        if (entry.preset == Default::inSettings) {
            found.push_back({QString::fromLatin1(entry.name), entry.apply});
        }
    }
    return found;
}

void refuseExclusivePairs(const QCommandLineParser& parser) {
    for (const auto& pair : exclusivePairs) {
        const QString first = QString::fromLatin1(pair[0]);
        const QString second = QString::fromLatin1(pair[1]);
        if (parser.isSet(first) && parser.isSet(second)) {
            throw UsageError(QStringLiteral("%1 and %2 exclude each other").arg(dashed(first), dashed(second)));
        }
    }
}

/// Takes the format from the ending of the output's name; a name without an ending leaves it as it is.
void deriveFormat(Options& options) {
    const QString ending = QFileInfo(options.outputFile).suffix();
    if (ending.isEmpty()) {
        return;
    }
    const auto format = formatFromName(ending);
    if (!format) {
        throw UsageError(QStringLiteral("--output: \"%1\" tells no format; end it in one of %2, or give --format")
                             .arg(options.outputFile, formatNames()));
    }
    options.format = *format;
}

void checkTogether(const QCommandLineParser& parser, Options& options) {
    refuseExclusivePairs(parser);
    const bool listsPapers = options.action == Action::listPapers;
    if (options.json && !listsPapers) {
        throw UsageError(QStringLiteral("--json: goes with --list-papers"));
    }
    if (listsPapers) {
        return;
    }
    if (options.inputs.isEmpty() && options.action != Action::savePaper) {
        throw UsageError(QStringLiteral("no drawing given"));
    }
    if (!options.outputFile.isEmpty() && options.inputs.size() > 1) {
        throw UsageError(QStringLiteral("--output: takes one drawing only; give --target-directory for several"));
    }
    if (!parser.isSet(QStringLiteral("format"))) {
        deriveFormat(options);
    }
    if (options.format == OutputFormat::png) { // an image has no texts
        options.style.texts = TextMode::outlines;
    }
}

/// What a command line asks for, from all that it says.
Action actionOf(const QCommandLineParser& parser) {
    Options options;
    applySwitches(parser, options);
    const bool onlySaves = parser.isSet(QStringLiteral("save-paper")) && parser.positionalArguments().isEmpty();
    return options.action == Action::plot && onlySaves ? Action::savePaper : options.action;
}

} // namespace

Options optionsFromArguments(const QStringList& arguments) {
    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(arguments)) {
        throw UsageError(parser.errorText());
    }
    Options options;
    const Action action = actionOf(parser);
    const bool lays = action == Action::plot || action == Action::savePaper;
    if (lays) {
        applyDefaults(driverFolder(), presets(), options);
        applyDefaults(ownFolder(), presets(), options);
    }
    if (parser.isSet(QStringLiteral("paper"))) {
        options.paperOrigin = QStringLiteral("--paper");
    }
    if (parser.isSet(QStringLiteral("margins"))) {
        options.marginsOrigin = QStringLiteral("--margins");
    }
    applyValues(parser, options);
    applySwitches(parser, options);
    options.action = action;
    options.inputs = parser.positionalArguments();
    if (lays || action == Action::listLayers || action == Action::listPapers) {
        checkTogether(parser, options);
    }
    if (lays) {
        choosePaper(options);
        choosePens(options);
    }
    return options;
}

QString helpText() {
    QCommandLineParser parser;
    declareOptions(parser);
    return parser.helpText() +
           QStringLiteral("\nExit status: 0 done, 1 wrong usage, 2 a drawing, or a file of papers, pens or defaults, "
                          "cannot be\nread, 3 it is no drawing or is truncated, 4 the output failed.\n");
}

} // namespace kelplot
