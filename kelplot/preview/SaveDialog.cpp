// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/SaveDialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace kelplot {
namespace {

QString filterOf(OutputFormat format, const char* name) {
    return QStringLiteral("%1 (*.%2)").arg(QLatin1String(name), suffixOf(format));
}

} // namespace

QString chooseFile(QWidget* parent, const QString& drawing, OutputFormat format, bool pagesInOne) {
    constexpr struct {
        OutputFormat format;
        const char* name;
    } kinds[] = {{OutputFormat::pdf, "PDF document"},
                 {OutputFormat::png, "PNG picture"},
                 {OutputFormat::svg, "SVG drawing"},
                 {OutputFormat::hpgl, "HP-GL/2 plot"}};
    QFileDialog dialog(parent, QStringLiteral("Save the plot"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    QStringList suffixes;
    for (const auto& kind : kinds) {
        if (!pagesInOne || hasPages(kind.format)) {
            filters << filterOf(kind.format, kind.name);
            suffixes << suffixOf(kind.format);
        }
    }
    dialog.setNameFilters(filters);
    const auto useFilter = [&](const QString& filter) {
        dialog.setDefaultSuffix(suffixes.value(filters.indexOf(filter)));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, useFilter);
    const int first = std::max(0, suffixes.indexOf(suffixOf(format)));
    dialog.selectNameFilter(filters[first]);
    useFilter(filters[first]);
    if (drawing != QLatin1String("-")) {
        const QFileInfo info(drawing);
        dialog.setDirectory(info.absolutePath());
        dialog.selectFile(info.completeBaseName() + QLatin1Char('.') + suffixes[first]);
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace kelplot
