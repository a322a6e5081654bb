// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/FontTable.h"

#include <algorithm>

namespace kelplot {

namespace {

QString withoutFolder(const QString& path) {
    return path.mid(std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\'))) + 1);
}

} // namespace

QString FontTable::keyOf(const FontName& name) {
    QString key = QString::fromStdString(name.name).trimmed();
    if (name.isFile) {
        constexpr int longestEnding = 4; // with its point
        key = withoutFolder(key);
        const int point = key.lastIndexOf(QLatin1Char('.'));
        key = point > 0 && key.size() - point <= longestEnding ? key.left(point) : key;
    }
    return (key.startsWith(QLatin1Char('@')) ? key.mid(1) : key).toLower();
}

const FontRule* FontTable::find(const QString& key) const {
    const auto found = m_rules.constFind(key);
    return found == m_rules.constEnd() ? nullptr : &*found;
}

} // namespace kelplot
