// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/LayerFilter.h"

#include <QRegularExpression>
#include <algorithm>

namespace kelplot {
namespace {

bool matchesAny(const QStringList& patterns, const QString& name) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const QString& pattern) { return matchesLayer(pattern, name); });
}

} // namespace

bool matchesLayer(const QString& pattern, const QString& name) {
    QStringList parts = pattern.split(QLatin1Char('*'));
    for (QString& part : parts) {
        part = QRegularExpression::escape(part);
    }
    const QRegularExpression expression(QRegularExpression::anchoredPattern(parts.join(QStringLiteral(".*"))),
                                        QRegularExpression::CaseInsensitiveOption |
                                            QRegularExpression::DotMatchesEverythingOption);
    return expression.match(name).hasMatch();
}

QStringList filterLayers(Drawing& drawing, const QStringList& wanted, const QStringList& unwanted) {
    QStringList names;
    for (Layer& layer : drawing.layers) {
        const QString name = QString::fromStdString(layer.name);
        names << name;
        if ((!wanted.isEmpty() && !matchesAny(wanted, name)) || matchesAny(unwanted, name)) {
            layer.plotted = false;
        }
    }
    QStringList unmatched = wanted + unwanted;
    const auto isMatched = [&](const QString& pattern) {
        return std::any_of(names.begin(), names.end(),
                           [&](const QString& name) { return matchesLayer(pattern, name); });
    };
    unmatched.erase(std::remove_if(unmatched.begin(), unmatched.end(), isMatched), unmatched.end());
    return unmatched;
}

} // namespace kelplot
