// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/LayoutOrder.h"

#include <QSet>
#include <QString>
#include <algorithm>

namespace kelplot {

void orderLayouts(std::vector<Layout>& layouts) {
    constexpr int highestNumber = 1'000'000;
    std::stable_sort(layouts.begin(), layouts.end(),
                     [](const Layout& a, const Layout& b) { return a.order < b.order; });
    QSet<QString> taken;
    for (const Layout& layout : layouts) {
        taken.insert(QString::fromStdString(layout.name).toCaseFolded());
    }
    int number = 0;
    const auto nextName = [&](int order) {
        number = std::max(number + 1, std::min(order, highestNumber));
        QString name = QStringLiteral("Layout %1").arg(number);
        while (taken.contains(name.toCaseFolded())) {
            name = QStringLiteral("Layout %1").arg(++number);
        }
        return name.toStdString();
    };
    for (Layout& layout : layouts) {
        if (layout.name.empty()) {
            layout.name = nextName(layout.order);
        }
    }
}

} // namespace kelplot
