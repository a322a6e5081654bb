// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/SettingsChoice.h"

#include "base/Numbers.h"
#include "cli/PaperListing.h"
#include "settings/PaperFile.h"
#include "settings/PaperTable.h"
#include "settings/PenFile.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

const QLatin1String sizeRule("WIDTHxHEIGHT in millimetres, 5 to 20000 each");

void useSize(Options& options, const SheetSize& size) {
    if (!PaperFile(driverFolder()).takes(size)) {
        throw UsageError(
            QStringLiteral("%1: \"%2\" is larger than the device takes").arg(options.paperOrigin, options.paper));
    }
    options.page.paper = {size, true};
}

/// Without the device's papers no name can be looked up. Only the paper that nobody asked for is still known.
void useUnlistedPaper(Options& options) {
    const QString missing = PaperFile(driverFolder()).path();
    if (!options.paperOrigin.isEmpty()) {
        throw SettingsError(
            missing,
            QStringLiteral("no such file, so \"%1\" cannot be looked up; give %2").arg(options.paper, sizeRule));
    }
    options.warnings << QStringLiteral("%1: no such file; the paper is A4").arg(missing);
}

void useName(Options& options) {
    const PaperTable table = PaperTable::load(options.warnings);
    const NamedPaper* const paper = table.find(options.paper);
    if (paper) {
        // A saved size lies as it was given; the device's sheets lie as suits the drawing.
        options.page.paper = {paper->size, paper->own};
        options.page.margins = paper->margins;
        return;
    }
    if (!PaperFile(driverFolder()).exists()) {
        useUnlistedPaper(options);
        return;
    }
    throw UsageError(QStringLiteral("%1: \"%2\" is no paper; the nearest are %3. Give one of --list-papers, or %4")
                         .arg(options.paperOrigin, options.paper,
                              table.nearest(options.paper).join(QStringLiteral(", ")), sizeRule));
}

void requireRoom(const Options& options) {
    if (leavesRoom(options.page)) {
        return;
    }
    if (options.margins) {
        throw UsageError(QStringLiteral("%1: they leave no room on the paper").arg(options.marginsOrigin));
    }
    throw UsageError(QStringLiteral("%1: \"%2\" has no room within the usual margins; give --margins")
                         .arg(options.paperOrigin, options.paper));
}

/// Keeps the record that is to be saved.
void requireSavable(Options& options) {
    if (!sheetSizeFromText(options.paper.toStdString())) {
        throw UsageError(QStringLiteral("--save-paper: needs a size, --paper WIDTHxHEIGHT"));
    }
    if (!isInTenths(options.page.paper.size, options.page.margins)) {
        throw UsageError(QStringLiteral("--save-paper: lengths are kept in tenths of a millimetre, no finer"));
    }
    const bool isSize = sheetSizeFromText(options.savedPaper.toStdString()).has_value();
    options.savedRecord = recordFor(options.savedPaper, options.page.paper.size, options.page.margins);
    if (isSize || !options.savedRecord) {
        throw UsageError(QStringLiteral("--save-paper: \"%1\" is not allowed; give a name of up to 63 bytes without "
                                        "quotes and number signs, that is no size")
                             .arg(options.savedPaper));
    }
    const PaperTable table = PaperTable::load(options.warnings);
    if (const NamedPaper* const other = table.find(options.savedPaper)) {
        throw UsageError(QStringLiteral("--save-paper: there is a paper \"%1\" already, %2; give another name")
                             .arg(other->name, sizeText(other->size)));
    }
}

} // namespace

void choosePaper(Options& options) {
    const std::string text = options.paper.toStdString();
    if (const auto size = sheetSizeFromText(text)) {
        useSize(options, *size);
    } else if (numberPairFromText(text, "xX")) {
        throw UsageError(
            QStringLiteral("%1: \"%2\" is no sheet; give %3").arg(options.paperOrigin, options.paper, sizeRule));
    } else {
        useName(options);
    }
    options.page.margins = options.margins.value_or(options.page.margins);
    requireRoom(options);
    if (!options.savedPaper.isEmpty()) {
        requireSavable(options);
    }
}

void choosePens(Options& options) {
    options.style.pens = penTableFrom(options.pensFiles);
}

QString savePaper(const Options& options, const PaperSize& record) {
    const PaperFile file(ownFolder());
    file.add(record);
    return QStringLiteral("%1: %2, saved as \"%3\"")
        .arg(file.path(), sizeText(options.page.paper.size), options.savedPaper);
}

} // namespace kelplot
