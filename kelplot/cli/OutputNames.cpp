// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/OutputNames.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

namespace kelplot {
namespace {

QString outputPath(const QString& input, const Options& options) {
    if (!options.outputFile.isEmpty()) {
        return options.outputFile;
    }
    const QString name = QFileInfo(input).completeBaseName() + QLatin1Char('.') + suffixOf(options.format);
    return options.outputDirectory.isEmpty() ? name : QDir(options.outputDirectory).filePath(name);
}

/// One text for one file, by whatever path it is named.
QString identityOf(const QString& path) {
    const QFileInfo info(path);
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

} // namespace

QStringList outputPaths(const Options& options) {
    QMap<QString, QString> takenBy;
    for (const QString& input : options.inputs) {
        takenBy.insert(identityOf(input), input);
    }
    QStringList paths;
    for (const QString& input : options.inputs) {
        const QString path = outputPath(input, options);
        const QString identity = identityOf(path);
        if (takenBy.contains(identity)) {
            throw UsageError(QStringLiteral("%1: its plot would replace %2, which belongs to %3")
                                 .arg(input, path, takenBy.value(identity)));
        }
        takenBy.insert(identity, input);
        paths << path;
    }
    return paths;
}

} // namespace kelplot
