// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/options/CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include "cli/options/Defaults.h"
#include "cli/options/OptionTable.h"
#include "settings/Folders.h"

namespace kelplot {
namespace {

constexpr const char* exclusivePairs[][2] = {
    {"portrait", "landscape"},
    {"fit", "scale"},
    {"output", "target-directory"},
    {"progress", "quiet"},
    {"dpi", "width"},
    {"grey", "bilevel"},
    {"save-paper", "list-papers"},
    {"save-paper", "list-layers"},
    {"save-paper", "list-layouts"},
    {"printer", "output"},
    {"printer", "target-directory"},
};

void declareOptions(QCommandLineParser& parser) {
    for (const OptionRow& row : optionRows()) {
        QStringList names;
        if (row.shortName) {
            names << QString::fromLatin1(row.shortName);
        }
        names << QString::fromLatin1(row.name);
        parser.addOption({names, QString::fromLatin1(row.description), QString::fromLatin1(row.valueName)});
    }
}

void applyOptions(const QCommandLineParser& parser, Request& request) {
    for (const OptionRow& row : optionRows()) {
        const QString name = QString::fromLatin1(row.name);
        if (row.valueName) {
            for (const QString& value : parser.values(name)) {
                applyOption(row, value, request);
            }
        } else if (parser.isSet(name)) {
            applyOption(row, {}, request);
        }
    }
}

/// The action that the options of a command line amount to.
Action actionOf(const QCommandLineParser& parser) {
    Request switches;
    for (const OptionRow& row : optionRows()) {
        if (!row.valueName && parser.isSet(QString::fromLatin1(row.name))) {
            applyOption(row, {}, switches);
        }
    }
    if (switches.action == Action::plot && parser.isSet(QStringLiteral("completion"))) {
        return Action::showCompletion;
    }
    const bool onlySaves = parser.isSet(QStringLiteral("save-paper")) && parser.positionalArguments().isEmpty();
    return switches.action == Action::plot && onlySaves ? Action::savePaper : switches.action;
}

void refuseExclusivePairs(const QCommandLineParser& parser) {
    for (const auto& pair : exclusivePairs) {
        if (parser.isSet(QString::fromLatin1(pair[0])) && parser.isSet(QString::fromLatin1(pair[1]))) {
            throw UsageError(
                QStringLiteral("--%1 and --%2 exclude each other").arg(QLatin1String(pair[0]), QLatin1String(pair[1])));
        }
    }
}

/// Takes the format from the ending of the output's name; a name without an ending leaves it as it is.
void deriveFormat(Request& request) {
    const QString ending = QFileInfo(request.outputFile).suffix();
    if (ending.isEmpty()) {
        return;
    }
    const auto format = formatFromName(ending);
    if (!format) {
        throw UsageError(QStringLiteral("--output: \"%1\" has an unknown ending; use one of %2, or give --format")
                             .arg(request.outputFile, formatNames()));
    }
    request.format = *format;
}

void checkTogether(const QCommandLineParser& parser, Request& request) {
    refuseExclusivePairs(parser);
    if (request.json && request.action != Action::plot && request.action != Action::listPapers) {
        throw UsageError(QStringLiteral("--json: allowed for plots and with --list-papers"));
    }
    if (parser.isSet(QStringLiteral("tile-overlap")) && !parser.isSet(QStringLiteral("tile"))) {
        throw UsageError(QStringLiteral("--tile-overlap: allowed only with --tile"));
    }
    if (request.printer.isEmpty()) {
        for (const char* const option : {"copies", "sides", "no-wait"}) {
            if (parser.isSet(QLatin1String(option))) {
                throw UsageError(QStringLiteral("--%1: allowed only with --printer").arg(QLatin1String(option)));
            }
        }
    }
    if (request.action == Action::listPapers || request.action == Action::listPrinters) {
        return;
    }
    if (request.inputs.isEmpty() && request.action != Action::savePaper) {
        throw UsageError(QStringLiteral("no drawing given"));
    }
    if (request.inputs.count(QStringLiteral("-")) > 1) {
        throw UsageError(QStringLiteral("standard input holds one drawing only"));
    }
    if (!parser.isSet(QStringLiteral("format"))) {
        deriveFormat(request);
        request.format = request.printer.isEmpty() ? request.format : OutputFormat::pdf;
    }
}

} // namespace

Request requestFromArguments(const QStringList& arguments) {
    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(arguments)) {
        throw UsageError(parser.errorText());
    }
    Request request;
    const Action action = actionOf(parser);
    const bool lays = action == Action::plot || action == Action::preview || action == Action::savePaper;
    if (lays) {
        applyDefaults(driverFolder(), request);
        applyDefaults(ownFolder(), request);
    }
    if (parser.isSet(QStringLiteral("paper"))) {
        request.paper.origin = QStringLiteral("--paper");
    }
    if (parser.isSet(QStringLiteral("margins"))) {
        request.marginsOrigin = QStringLiteral("--margins");
    }
    applyOptions(parser, request);
    request.action = action;
    for (const OptionRow& row : optionRows()) {
        if (parser.isSet(QString::fromLatin1(row.name))) {
            request.given << QString::fromLatin1(row.name);
        }
    }
    request.inputs = parser.positionalArguments();
    if (lays || action == Action::listLayers || action == Action::listLayouts || action == Action::listPapers ||
        action == Action::listPrinters) {
        checkTogether(parser, request);
    }
    return request;
}

} // namespace kelplot
