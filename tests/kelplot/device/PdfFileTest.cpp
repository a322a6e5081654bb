// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QtEndian>
#include <cmath>
#include <limits>
#include <random>

#include "device/pdf/CompactFont.h"
#include "device/pdf/PdfDevice.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

TEST(PdfBytes, NumbersHaveNoMoreDigitsThanTheyNeed) {
    struct Row {
        double number;
        int decimals;
        const char* text;
    };
    const Row rows[] = {
        {0.0, 1, "0 "},
        {-0.04, 1, "0 "},
        {0.05001, 1, ".1 "},
        {-0.5, 1, "-.5 "},
        {12.96, 1, "13 "},
        {-120.0, 1, "-120 "},
        {1234567.89, 1, "1234567.9 "},
        {1e9, 1, "1000000000 "},
        {-1.0203, 4, "-1.0203 "},
        {2.0, 8, "2 "},
        {1e300, 0, "9000000000000000 "},
        {std::nan(""), 1, "0 "},
        {std::numeric_limits<double>::infinity(), 1, "0 "},
    };
    for (const Row& row : rows) {
        PdfBytes bytes;
        bytes.decimal(row.number, row.decimals);
        EXPECT_EQ(bytes.view(), row.text) << row.number;
    }
}

/// Draws more than waits to be written at a time, by chance but always the same.
void drawMuch(QPainter& painter, int lines) {
    std::minstd_rand random(7);
    for (int i = 0; i < lines; ++i) {
        QPointF points[20];
        for (QPointF& point : points) {
            point = QPointF(static_cast<int>(random() % 9000), static_cast<int>(random() % 9000));
        }
        painter.drawPolyline(points, 20);
    }
}

QByteArray listOfOne(const QByteArray& bytes) {
    return QByteArray("\0\1\1\1", 4) + char(bytes.size() + 1) + bytes;
}

template <typename Number>
QByteArray bigEndian(Number number) {
    const Number turned = qToBigEndian(number);
    return {reinterpret_cast<const char*>(&turned), sizeof turned};
}

/// A font of five glyphs in the compact format: a dictionary that begins with `entries`, and the numbers of its glyphs.
QByteArray compactFont(const QByteArray& entries, const QByteArray& numbers) {
    const QByteArray head = QByteArray("\1\0\4\1", 4) + listOfOne("A");
    const int dictionarySize = entries.size() + 6 + 4;
    const int at = head.size() + listOfOne(QByteArray()).size() + dictionarySize;
    const QByteArray dictionary =
        entries + '\x1D' + bigEndian(qint32(at)) + '\x0F' + '\x1C' + bigEndian(qint16(at + numbers.size())) + '\x11';
    return head + listOfOne(dictionary) + numbers + QByteArray("\0\5", 2);
}

TEST(CompactFont, FindsGlyphsByTheirOrderUnlessTheyHaveNumbersOfTheirOwn) {
    const QByteArray collection("\x8B\xF7\0\xFB\1\x0C\x1E", 7); // 0, 108 and -109, as many names do not matter
    const QByteArray decimal("\x1E\x0A\x14\x1F\x0C\x08", 6);    // 0.141, with an operator of two bytes
    const QByteArray inOrder("\2\0\1\0\3", 5);                  // one range, of 1 and 3 more
    const struct {
        const char* name;
        QByteArray table;
        bool isInOrder;
    } rows[] = {
        {"one range", compactFont(collection, inOrder), true},
        {"behind a decimal number", compactFont(collection + decimal, inOrder), true},
        {"from 2 on", compactFont(collection, QByteArray("\2\0\2\0\3", 5)), false},
        {"too few", compactFont(collection, QByteArray("\2\0\1\0\2", 5)), false},
        {"one by one", compactFont(collection, QByteArray("\0\0\1\0\3", 5)), false},
        {"of no collection", compactFont(decimal, QByteArray("\2\0\2\0\3", 5)), true},
        {"no table", QByteArray(), false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(numbersGlyphsInOrder(row.table), row.isInOrder) << row.name;
    }
}

TEST(PdfDevice, WritesTheSameBytesAgain) {
    qputenv("SOURCE_DATE_EPOCH", "1700000000");
    const TemporaryDirectory directory;
    for (const char* const name : {"first.pdf", "second.pdf"}) {
        PdfDevice device({QString::fromStdString(directory.path(name)), "Title", {100, 100}});
        drawMuch(device.painter(), 20000);
        device.finish();
    }
    qunsetenv("SOURCE_DATE_EPOCH");
    EXPECT_GT(directory.read("first.pdf").size(), 1U << 20);
    EXPECT_TRUE(directory.read("first.pdf") == directory.read("second.pdf"));
}

TEST(PdfDevice, AFailureOfTheWritingThreadReachesTheCaller) {
    for (const int lines : {1, 40000}) {
        PdfDevice device({"/dev/full", "", {100, 100}});
        EXPECT_THROW(
            {
                drawMuch(device.painter(), lines);
                device.finish();
            },
            OutputError)
            << lines;
    }
}

} // namespace
} // namespace kelplot
