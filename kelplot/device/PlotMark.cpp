// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/PlotMark.h"

#include <QFile>
#include <QFileInfo>

namespace kelplot {

bool isReplaceable(const QString& path) {
    constexpr qint64 beginning = 4096; // with a title before the mark
    const QFileInfo info(path);
    if (!info.isFile() || info.size() == 0) {
        return true;
    }
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(beginning).contains(plotMark);
}

} // namespace kelplot
