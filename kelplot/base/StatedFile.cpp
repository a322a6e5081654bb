// SPDX-License-Identifier: GPL-2.0-or-later
#include "base/StatedFile.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace kelplot {

QString statedFile(const std::string& stated, const QString& folder) {
    const QString path = QString::fromStdString(stated).replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString name = path.section(QLatin1Char('/'), -1);
    if (name.isEmpty()) {
        return {};
    }
    const QDir directory(folder);
    // Only regular files: a device or a pipe could block its reader.
    QString direct = directory.filePath(path);
    if (QFileInfo(direct).isFile()) {
        return direct;
    }
    const QStringList beside = directory.entryList(QDir::Files);
    const auto found = std::find_if(beside.begin(), beside.end(), [&](const QString& entry) {
        return entry.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == beside.end() ? QString() : directory.filePath(*found);
}

} // namespace kelplot
