// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/PlotPlan.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <algorithm>

#include "base/Numbers.h"
#include "cli/job/DrawingInput.h"
#include "cli/job/SpaceChoice.h"
#include "device/PlotMark.h"
#include "settings/Folders.h"
#include "settings/PaperFile.h"
#include "settings/PaperTable.h"
#include "settings/PenSection.h"
#include "settings/PlotStyleFile.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

const QLatin1String sizeRule("WIDTHxHEIGHT in millimetres, 5 to 20000 each");

void useSize(const AskedPaper& asked, const SheetSize& size, PlotPlan& plan) {
    if (!PaperFile::ofDevice().takes(size)) {
        throw UsageError(QStringLiteral("%1: \"%2\" is larger than the device takes").arg(asked.origin, asked.text));
    }
    plan.page.paper = {size, true};
}

/// Without the device's papers no name can be looked up. Only the built-in default is still known.
void useUnlistedPaper(const AskedPaper& asked, PlotPlan& plan) {
    const QString missing = PaperFile::ofDevice().path();
    if (!asked.origin.isEmpty()) {
        throw SettingsError(
            missing, QStringLiteral("no such file, so \"%1\" cannot be looked up; give %2").arg(asked.text, sizeRule));
    }
    plan.warnings << QStringLiteral("%1: no such file; the paper is A4").arg(missing);
}

void useName(const AskedPaper& asked, PlotPlan& plan) {
    const PaperTable table = PaperTable::load(plan.warnings);
    const NamedPaper* const paper = table.find(asked.text);
    if (paper) {
        // A saved size keeps its orientation; the device's sheets are turned to suit the drawing.
        plan.page.paper = {paper->size, paper->own};
        plan.page.margins = paper->margins;
        return;
    }
    if (!PaperFile::ofDevice().exists()) {
        useUnlistedPaper(asked, plan);
        return;
    }
    throw UsageError(
        QStringLiteral("%1: \"%2\" is not a paper; the nearest are %3. Give one of --list-papers, or %4")
            .arg(asked.origin, asked.text, table.nearest(asked.text).join(QStringLiteral(", ")), sizeRule));
}

void requireRoom(const Request& request, const PageOptions& page) {
    if (leavesRoom(page)) {
        return;
    }
    if (request.margins) {
        throw UsageError(QStringLiteral("%1: the margins leave no room on the paper").arg(request.marginsOrigin));
    }
    throw UsageError(QStringLiteral("%1: \"%2\" has no room within the usual margins; give --margins")
                         .arg(request.paper.origin, request.paper.text));
}

/// Finds the sheet and margins of a paper; a name is looked up in the paper files.
void usePaper(const AskedPaper& asked, PlotPlan& plan) {
    const std::string text = asked.text.toStdString();
    if (const auto size = sheetSizeFromText(text)) {
        useSize(asked, *size, plan);
    } else if (numberPairFromText(text, "xX")) {
        throw UsageError(
            QStringLiteral("%1: \"%2\" is not a sheet size; give %3").arg(asked.origin, asked.text, sizeRule));
    } else {
        useName(asked, plan);
    }
}

void choosePaper(const Request& request, PlotPlan& plan) {
    usePaper(request.paper, plan);
    plan.page.margins = request.margins.value_or(plan.page.margins);
    requireRoom(request, plan.page);
}

/// The record of the paper that is to be saved.
PaperSize savableRecord(const Request& request, PlotPlan& plan) {
    if (!sheetSizeFromText(request.paper.text.toStdString())) {
        throw UsageError(QStringLiteral("--save-paper: needs a size, --paper WIDTHxHEIGHT"));
    }
    if (!isInTenths(plan.page.paper.size, plan.page.margins)) {
        throw UsageError(QStringLiteral("--save-paper: lengths are kept in tenths of a millimetre, no finer"));
    }
    const bool isSize = sheetSizeFromText(request.savedPaper.toStdString()).has_value();
    const auto record = recordFor(request.savedPaper, plan.page.paper.size, plan.page.margins);
    if (isSize || !record) {
        throw UsageError(QStringLiteral("--save-paper: \"%1\" is not allowed; give a name of up to 63 bytes without "
                                        "quotes and number signs that is not a size")
                             .arg(request.savedPaper));
    }
    const PaperTable table = PaperTable::load(plan.warnings);
    if (const NamedPaper* const other = table.find(request.savedPaper)) {
        throw UsageError(QStringLiteral("--save-paper: there is a paper \"%1\" already, %2; give another name")
                             .arg(other->name, sizeText(other->size)));
    }
    return *record;
}

/// The patterns of the settings and of the files that were asked for.
PatternTable patternsFor(const Request& request) {
    PatternTable table;
    for (const QString& folder : {driverFolder(), ownFolder()}) {
        const QString path = QDir(folder).filePath(QStringLiteral("kelplot.pat"));
        if (QFile::exists(path)) {
            addPatterns(path, table);
        }
    }
    for (const QString& path : request.patternFiles) {
        addPatterns(path, table);
    }
    return table;
}

/// A table of plot styles that was asked for replaces the pens of the settings, and so do pens those of a layout.
void choosePens(const Request& request, PlotPlan& plan) {
    const bool pensGiven = request.given.contains(QStringLiteral("pens"));
    const QString& file = request.plotStyleFile;
    const bool statesTable = !file.isEmpty() && file.compare(QLatin1String("none"), Qt::CaseInsensitive) != 0;
    if (statesTable && pensGiven) {
        throw UsageError(QStringLiteral("--plot-style: give either it or --pens"));
    }
    plan.plotStyleFile = statesTable ? file : QString();
    plan.layoutPlotStyles = file.isEmpty() && !pensGiven;
    plan.style.pens = statesTable ? plotStylesFrom(file) : penTableFrom(request.pensFiles);
}

StatedPage statedBy(const Request& request) {
    const auto anyOf = [&](std::initializer_list<const char*> names) {
        return std::any_of(names.begin(), names.end(),
                           [&](const char* name) { return request.given.contains(QLatin1String(name)); });
    };
    return {anyOf({"paper"}), anyOf({"margins"}), anyOf({"scale", "fit", "window", "center", "portrait", "landscape"})};
}

/// Texts of a PDF file can be searched and look the same everywhere; those of an SVG file depend on the viewer's fonts,
/// and images and plotters have none.
TextMode textModeFor(const Request& request) {
    if (request.format == OutputFormat::png || request.format == OutputFormat::hpgl) {
        return TextMode::outlines;
    }
    return request.texts.value_or(request.format == OutputFormat::pdf ? TextMode::fonts : TextMode::outlines);
}

/// How the sheets are spread over pages; the margins of a paper that is named count, and those that are stated do not.
std::optional<Tiling> tilingFor(const Request& request, PlotPlan& plan) {
    if (request.tilePaper.isEmpty()) {
        return std::nullopt;
    }
    if (!hasPages(request.format)) {
        throw UsageError(QStringLiteral("--tile: the pages go into one file; give --format pdf or hpgl"));
    }
    PlotPlan pages;
    usePaper({request.tilePaper, QStringLiteral("--tile")}, pages);
    plan.warnings << pages.warnings;
    const Tiling tiling{pages.page.paper, pages.page.margins, request.tileOverlap};
    if (!leavesRoom(tiling)) {
        throw UsageError(QStringLiteral("--tile: \"%1\" has no room within its margins and the overlap of %2 mm")
                             .arg(request.tilePaper)
                             .arg(request.tileOverlap));
    }
    return tiling;
}

/// The same text for the same file, whatever path names it.
QString identityOf(const QString& path) {
    const QFileInfo info(path);
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

QString outputPath(const QString& input, const Request& request) {
    if (!request.outputFile.isEmpty()) {
        return request.outputFile;
    }
    if (isStandardStream(input) && request.outputDirectory.isEmpty()) {
        return input;
    }
    const QFileInfo info(input);
    const QString name = titleOf(input) + QLatin1Char('.') + suffixOf(request.format);
    if (!request.outputDirectory.isEmpty()) {
        return QDir::cleanPath(QDir(request.outputDirectory).filePath(name));
    }
    return info.path() == QLatin1String(".") ? name : QDir(info.path()).filePath(name);
}

/// The files of a request: one for all drawings where its name is given, else one for each.
std::vector<PlannedFile> plannedFiles(const Request& request) {
    std::vector<PlannedFile> files;
    for (const QString& input : request.inputs) {
        if (!files.empty() && !request.outputFile.isEmpty()) {
            files.back().inputs << input;
            files.back().title = QFileInfo(request.outputFile).completeBaseName();
        } else {
            files.push_back({outputPath(input, request), titleOf(input), {input}});
        }
    }
    return files;
}

/// Refuses files that would replace a drawing, one another, or what somebody else has made.
void checkOutputs(const std::vector<PlannedFile>& files, const Request& request) {
    QMap<QString, QString> takenBy;
    for (const QString& input : request.inputs) {
        takenBy.insert(identityOf(input), input);
    }
    for (const PlannedFile& file : files) {
        if (isStandardStream(file.path)) {
            continue;
        }
        const QString identity = identityOf(file.path);
        if (takenBy.contains(identity)) {
            throw UsageError(QStringLiteral("%1: its plot would replace %2, which belongs to %3")
                                 .arg(file.inputs[0], file.path, takenBy.value(identity)));
        }
        takenBy.insert(identity, file.inputs[0]);
        if (!request.replaceAny && !isReplaceable(file.path)) {
            throw outputError(file.path,
                              QStringLiteral("is there already and no plot of kelplot's; give --force to replace it"));
        }
    }
}

void refuseImageOptions(const Request& request) {
    for (const char* const name : {"grey", "bilevel", "width"}) {
        if (request.format != OutputFormat::png && request.given.contains(QLatin1String(name))) {
            throw UsageError(QStringLiteral("--%1: is for images; give --format png").arg(QLatin1String(name)));
        }
    }
}

} // namespace

PlotPlan planFor(const Request& request) {
    const bool onePage = !hasPages(request.format);
    if (request.layout.compare(allLayouts, Qt::CaseInsensitive) == 0 && onePage) {
        throw UsageError(QStringLiteral("--layout: all layouts go into one file; give --format pdf or hpgl"));
    }
    if (request.inputs.size() > 1 && !request.outputFile.isEmpty() && onePage) {
        throw UsageError(QStringLiteral("--output: takes several drawings as pdf or hpgl only; "
                                        "give --target-directory for a file each"));
    }
    refuseImageOptions(request);
    PlotPlan plan;
    plan.format = request.format;
    plan.dotsPerInch = request.dotsPerInch;
    plan.pixelWidth = request.pixelWidth;
    plan.pixels = request.pixels;
    plan.page.orientation = request.orientation;
    plan.page.scale = request.scale;
    plan.page.centred = request.centred;
    plan.page.window = request.window;
    choosePaper(request, plan);
    plan.statedPage = statedBy(request);
    plan.tiling = tilingFor(request, plan);
    plan.layout = request.layout;
    plan.millimetresPerUnit = request.millimetresPerUnit;
    if (!request.savedPaper.isEmpty()) {
        plan.savedName = request.savedPaper;
        plan.savedPaper = savableRecord(request, plan);
    }
    plan.style.monochrome = request.monochrome;
    plan.style.lineWeightScale = request.lineWeightScale;
    choosePens(request, plan);
    plan.style.fonts = request.fonts;
    plan.style.patterns = patternsFor(request);
    plan.style.texts = textModeFor(request);
    plan.layers = request.layers;
    plan.excludedLayers = request.excludedLayers;
    plan.strict = request.strict;
    plan.files = plannedFiles(request);
    plan.printer = request.printer;
    plan.print.copies = request.copies;
    plan.print.sides = request.sides;
    plan.waitsForPrinter = !request.doesNotWait;
    if (plan.printer.isEmpty()) {
        checkOutputs(plan.files, request);
    } else if (plan.format != OutputFormat::pdf) {
        throw UsageError(QStringLiteral("--printer: takes PDF only"));
    }
    plan.madeFolder = request.outputDirectory;
    return plan;
}

QString savePaper(const PlotPlan& plan) {
    const PaperFile file = PaperFile::ofUser();
    file.add(plan.savedPaper.value());
    return QStringLiteral("%1: %2, saved as \"%3\"").arg(file.path(), sizeText(plan.page.paper.size), plan.savedName);
}

} // namespace kelplot
