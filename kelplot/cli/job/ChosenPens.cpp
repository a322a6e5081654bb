// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/ChosenPens.h"

#include <QFileInfo>

#include "base/StatedFile.h"
#include "settings/PlotStyleFile.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

/// The settings of a space; null where the drawing states none.
const PlotSettings* settingsOf(const Space& space, const Drawing& drawing) {
    if (space.layout != nullptr) {
        return &space.layout->settings;
    }
    return &space.entities == &drawing.modelSpace ? &drawing.modelSettings : nullptr;
}

/// Takes the pens of the table that a space names, where there is one to be read.
void useNamedTable(const std::string& name, const Drawing& drawing, ChosenPens& pens, QString& file) {
    const QString path = statedFile(name, QString::fromStdString(drawing.folder));
    if (path.isEmpty()) {
        pens.note = QStringLiteral("plot styles not found: ") + QString::fromStdString(name);
        return;
    }
    try {
        pens.table = plotStylesFrom(path);
        file = path;
    } catch (const SettingsError& error) {
        pens.warnings << QStringLiteral("plot styles left out, ") + QString::fromUtf8(error.what());
    }
}

/// The plot styles of a drawing that a table by names does not list.
QStringList unlistedStyles(const Drawing& drawing, const PenTable& table) {
    QStringList unlisted;
    for (const std::string& name : drawing.plotStyles) {
        const QString style = QString::fromStdString(name);
        if (!style.isEmpty() && !table.lists(style) &&
            style.compare(QLatin1String("Normal"), Qt::CaseInsensitive) != 0) {
            unlisted << style;
        }
    }
    return unlisted;
}

} // namespace

ChosenPens chosenPens(const Drawing& drawing, const Space& space, const PlotPlan& plan) {
    ChosenPens pens;
    pens.table = plan.style.pens;
    QString file = plan.plotStyleFile;
    const PlotSettings* const settings = settingsOf(space, drawing);
    if (plan.layoutPlotStyles && settings != nullptr && !settings->styleTable.empty()) {
        useNamedTable(settings->styleTable, drawing, pens, file);
    }
    if (!file.isEmpty() && pens.table.goesByNames() != drawing.namesPlotStyles) {
        pens.warnings << QStringLiteral("the plot styles of %1 go by %2, those of the drawing by %3")
                             .arg(QFileInfo(file).fileName(),
                                  QLatin1String(drawing.namesPlotStyles ? "colours" : "names"),
                                  QLatin1String(drawing.namesPlotStyles ? "names" : "colours"));
    }
    if (pens.table.goesByNames() && drawing.namesPlotStyles) {
        if (const QStringList unlisted = unlistedStyles(drawing, pens.table); !unlisted.isEmpty()) {
            pens.warnings << QStringLiteral("plot styles that %1 does not list are plotted as Normal: %2")
                                 .arg(QFileInfo(file).fileName(), unlisted.join(QStringLiteral(", ")));
        }
    }
    return pens;
}

} // namespace kelplot
