// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/DrawingInput.h"

#include <QFile>
#include <QFileInfo>

#include "cli/job/LayerFilter.h"
#include "plot/annotation/AnnotationBlocks.h"
#include "reader/DxfReader.h"

namespace kelplot {

WorkOn::WorkOn(const QString& input, Console& console) : m_console(console) {
    constexpr int longestLabel = 40; // characters; the line of progress must not wrap
    m_console.startWork(QFileInfo(input).fileName().left(longestLabel).toStdString());
}

bool isStandardStream(const QString& name) {
    return name == QLatin1String("-");
}

QString titleOf(const QString& input) {
    return isStandardStream(input) ? QStringLiteral("drawing") : QFileInfo(input).completeBaseName();
}

Drawing readDrawing(const QString& input, const Progress& progress) {
    DxfReader reader;
    return reader.read(QFile::encodeName(input).toStdString(), progress);
}

std::shared_ptr<Drawing> readToPlot(const QString& input, const PlotPlan& plan, const Progress& progress,
                                    QStringList& warnings) {
    auto drawing = std::make_shared<Drawing>(readDrawing(input, progress));
    for (const QString& pattern : filterLayers(*drawing, plan.layers, plan.excludedLayers)) {
        warnings << QStringLiteral("no layer is named \"%1\"").arg(pattern);
    }
    buildAnnotations(*drawing, plan.style.fonts);
    return drawing;
}

} // namespace kelplot
