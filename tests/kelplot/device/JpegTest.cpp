// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>

#include "device/pdf/PdfDevice.h"
#include "device/svg/SvgDevice.h"
#include "device/vector/JpegStream.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

QByteArray fileOf(QImage::Format format, const char* kind = "JPG") {
    QImage image(24, 16, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x * 10, y * 15, 90));
        }
    }
    QByteArray file;
    QBuffer buffer(&file);
    image.convertToFormat(format).save(&buffer, kind);
    return file;
}

/// The file with a segment after its first two bytes.
QByteArray withSegment(QByteArray file, char marker, const QByteArray& content) {
    const QByteArray head = QByteArray("\xFF") + marker + '\0' + static_cast<char>(content.size() + 2);
    return file.insert(2, head + content);
}

QByteArray withFrame(QByteArray file, char marker) {
    const int frame = file.indexOf("\xFF\xC0");
    file[frame + 1] = marker;
    return file;
}

TEST(JpegStream, IsTakenWhereEveryReaderFindsThePixels) {
    const QByteArray colours = fileOf(QImage::Format_RGB32);
    const QByteArray grey = fileOf(QImage::Format_Grayscale8);
    const QByteArray adobe("Adobe\0\x64\0\0\0\0", 11);
    const struct {
        const char* name;
        QByteArray file;
        int components; ///< 0: not taken
        QByteArray bytes;
    } rows[] = {
        {"colours", colours, 3, colours},
        {"grey", grey, 1, grey},
        {"a camera's notes and a comment", withSegment(withSegment(colours, '\xE1', "Exif"), '\xFE', "here"), 3,
         colours},
        {"Adobe's usual colours", withSegment(colours, '\xEE', adobe + '\1'), 3,
         withSegment(colours, '\xEE', adobe + '\1')},
        {"Adobe's unchanged colours", withSegment(colours, '\xEE', adobe + '\0'), 0, {}},
        {"arithmetic codes", withFrame(colours, '\xC9'), 0, {}},
        {"lossless", withFrame(colours, '\xC3'), 0, {}},
        {"no end", colours.left(colours.size() - 2), 0, {}},
        {"its head alone", colours.left(12) + "\xFF\xD9", 0, {}},
        {"a segment beyond the end", QByteArray("\xFF\xD8\xFF\xE0\xFF\xFF\xFF\xD9"), 0, {}},
        {"another format", fileOf(QImage::Format_RGB32, "PNG"), 0, {}},
        {"nothing", {}, 0, {}},
    };
    for (const auto& row : rows) {
        const QImage pixels = QImage::fromData(row.components == 1 ? grey : colours, "JPG");
        const JpegStream stream = jpegOf(row.file, pixels);
        EXPECT_EQ(stream.isEmpty() ? 0 : stream.components, row.components) << row.name;
        EXPECT_TRUE(stream.bytes == row.bytes) << row.name;
        QImage others = pixels.convertToFormat(QImage::Format_ARGB32);
        others.setPixel(3, 3, qRgb(1, 2, 3));
        EXPECT_TRUE(jpegOf(row.file, others).isEmpty()) << row.name;
    }
}

/// What a device writes that draws the picture of a file twice.
template <typename Device>
QByteArray written(const QByteArray& picture) {
    const TemporaryDirectory directory;
    const QString path = QString::fromStdString(directory.path("page"));
    Device device({path, "", {100.0, 100.0}});
    device.pictureFollows(picture);
    device.painter().drawImage(0, 0, QImage::fromData(picture));
    device.painter().drawImage(500, 500, QImage::fromData(picture));
    device.pictureFollows({});
    device.finish();
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(JpegStream, StandsOnceInADocument) {
    const QByteArray picture = fileOf(QImage::Format_RGB32);
    EXPECT_EQ(written<PdfDevice>(picture).count(picture), 1);
    EXPECT_EQ(written<SvgDevice>(picture).count("data:image/jpeg;base64," + picture.toBase64()), 1);
}

} // namespace
} // namespace kelplot
