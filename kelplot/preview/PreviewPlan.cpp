// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PreviewPlan.h"

#include <QFileInfo>

namespace kelplot {
namespace {

Request requestOf(const Request& request, const QString& input, const QString& layout) {
    Request one = request;
    one.action = Action::plot;
    one.inputs = QStringList(input);
    one.layout = layout;
    one.layers.clear(); // the drawing's layers are switched already
    one.excludedLayers.clear();
    one.savedPaper.clear();
    one.outputDirectory.clear();
    return one;
}

/// What was asked for images does not keep the pages from being shown, saved or printed in other formats.
void dropImageOptions(Request& request) {
    for (const char* const name : {"grey", "bilevel", "width"}) {
        request.given.removeAll(QLatin1String(name));
    }
}

} // namespace

std::shared_ptr<const PlotPlan> planToShow(const Request& request) {
    Request shown = request;
    shown.outputFile = QStringLiteral("-");
    shown.inputs = QStringList(QStringLiteral("-"));
    shown.printer.clear();
    shown.format = OutputFormat::pdf; // whose pages are those of all formats
    dropImageOptions(shown);
    return std::make_shared<const PlotPlan>(planFor(shown));
}

std::shared_ptr<const PlotPlan> planToSave(const Request& request, const QString& input, const QString& layout,
                                           const QString& file) {
    Request saved = requestOf(request, input, layout);
    const QString ending = QFileInfo(file).suffix();
    const auto format = formatFromName(ending);
    if (!format) {
        throw UsageError(QStringLiteral("\"%1\" has an unknown ending; use one of %2").arg(file, formatNames()));
    }
    saved.format = *format;
    saved.outputFile = file;
    saved.replaceAny = true;
    saved.printer.clear();
    dropImageOptions(saved);
    return std::make_shared<const PlotPlan>(planFor(saved));
}

std::shared_ptr<const PlotPlan> planToPrint(const Request& request, const QString& input, const QString& layout) {
    Request printed = requestOf(request, input, layout);
    printed.outputFile.clear();
    printed.format = OutputFormat::pdf;
    dropImageOptions(printed);
    return std::make_shared<const PlotPlan>(planFor(printed));
}

} // namespace kelplot
