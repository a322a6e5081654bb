// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/NearestNames.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace kelplot {
namespace {

/// How many letters must be added, dropped or changed to turn `a` into `b`.
int differencesBetween(const QString& a, const QString& b) {
    std::vector<int> row(static_cast<size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const QChar letter : a) {
        int diagonal = std::exchange(row[0], row[0] + 1);
        for (size_t j = 1; j < row.size(); ++j) {
            const int changed = diagonal + (letter == b[static_cast<int>(j) - 1] ? 0 : 1);
            diagonal = std::exchange(row[j], std::min({changed, row[j] + 1, row[j - 1] + 1}));
        }
    }
    return row.back();
}

} // namespace

QStringList nearestNames(const QString& wanted, const QStringList& names, int most, QString (*plain)(const QString&)) {
    std::vector<std::pair<int, QString>> ranked;
    for (const QString& name : names) {
        ranked.emplace_back(differencesBetween(plain(wanted), plain(name)), name);
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QStringList nearest;
    for (const auto& [differences, name] : ranked) {
        nearest << name;
    }
    return nearest.mid(0, most);
}

} // namespace kelplot
