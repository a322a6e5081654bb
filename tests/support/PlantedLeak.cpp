// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include <QImage>

TEST(LeakCheck, SeesALeakOfATest) {
    auto* const lost = new QImage(8, 8, QImage::Format_RGB32);
    EXPECT_EQ(lost->width(), 8);
}
