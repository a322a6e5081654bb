// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include "cli/Defaults.h"
#include "cli/OptionTable.h"
#include "settings/SettingsFile.h"

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
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Drawings to plot."),
                                 QStringLiteral("FILE..."));
    parser.setApplicationDescription(QStringLiteral("Plots DXF drawings to PDF, PNG or SVG files."));
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
    const bool listsPapers = request.action == Action::listPapers;
    if (request.json && !listsPapers) {
        throw UsageError(QStringLiteral("--json: allowed only with --list-papers"));
    }
    if (listsPapers) {
        return;
    }
    if (request.inputs.isEmpty() && request.action != Action::savePaper) {
        throw UsageError(QStringLiteral("no drawing given"));
    }
    if (!request.outputFile.isEmpty() && request.inputs.size() > 1) {
        throw UsageError(QStringLiteral("--output: takes one drawing only; give --target-directory for several"));
    }
    if (!parser.isSet(QStringLiteral("format"))) {
        deriveFormat(request);
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
    const bool lays = action == Action::plot || action == Action::savePaper;
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
    if (lays || action == Action::listLayers || action == Action::listLayouts || action == Action::listPapers) {
        checkTogether(parser, request);
    }
    return request;
}

QString helpText() {
    QCommandLineParser parser;
    declareOptions(parser);
    return parser.helpText() +
           QStringLiteral("\nExit status: 0 done; 1 wrong usage; 2 a drawing, or a file of papers, pens or defaults, "
                          "cannot be\nread; 3 a file is not a drawing or is truncated; 4 the output failed.\n");
}

} // namespace kelplot
