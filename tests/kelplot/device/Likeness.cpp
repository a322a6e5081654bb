// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/device/Likeness.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace kelplot {
namespace {

/// How many pixels of `a` have a colour part that none within `reach` of them in `b` comes near.
int strangers(const QImage& a, const QImage& b, int tolerance, int reach) {
    int count = 0;
    const int side = 2 * reach + 1;
    for (int y = reach; y + reach < a.height(); ++y) {
        for (int x = reach; x + reach < a.width(); ++x) {
            bool isStranger = false;
            for (const int shift : {0, 8, 16}) {
                int least = 255, most = 0;
                for (int i = 0; i < side * side; ++i) {
                    const int part =
                        static_cast<int>(b.pixel(x + i % side - reach, y + i / side - reach) >> shift & 0xFFU);
                    least = std::min(least, part);
                    most = std::max(most, part);
                }
                const int part = static_cast<int>(a.pixel(x, y) >> shift & 0xFFU);
                isStranger = isStranger || part < least - tolerance || part > most + tolerance;
            }
            count += isStranger ? 1 : 0;
        }
    }
    return count;
}

} // namespace

void expectAlike(const QImage& own, const QImage& other, const char* name, int allowed, int reach) {
    constexpr int tolerance = 48;
    ASSERT_EQ(own.size(), other.size()) << name;
    const int different = strangers(own, other, tolerance, reach) + strangers(other, own, tolerance, reach);
    EXPECT_LE(different, allowed) << name;
}

bool isLike(const QString& text, const char* pattern) {
    const QString expression = QRegularExpression::escape(QString::fromUtf8(pattern)).replace("\\*", ".*?");
    return QRegularExpression("^" + expression + "$", QRegularExpression::DotMatchesEverythingOption)
        .match(text)
        .hasMatch();
}

} // namespace kelplot
