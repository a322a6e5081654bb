// SPDX-License-Identifier: BSD-3-Clause

// Feeds both image readers any bytes, and asks everything of what they read.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <vector>

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

#include "Require.h"
#include "imgo.h"
#include "keldriver/QTRenderer.h"
#include "keldriver/RasterImage.h"

namespace {

constexpr qint64 pixelLimit = 1 << 18; // larger ones only show how much memory there is

volatile unsigned sink = 0; // bytes that go here are read indeed

void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {
}

bool isPng(const std::vector<uint8_t>& bytes) {
    constexpr uint8_t signature[] = {0x89, 'P', 'N', 'G'};
    return bytes.size() >= 24 && std::equal(std::begin(signature), std::end(signature), bytes.begin());
}

bool isGif(const std::vector<uint8_t>& bytes) {
    constexpr uint8_t signature[] = {'G', 'I', 'F'};
    return bytes.size() >= 10 && std::equal(std::begin(signature), std::end(signature), bytes.begin());
}

/// A PNG file states its size where it stands; asking a reader for it would have it read chunks of any stated length.
QSize statedSize(const std::vector<uint8_t>& bytes) {
    QByteArray content(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
    if (isPng(bytes)) {
        return {qFromBigEndian<qint32>(content.constData() + 16), qFromBigEndian<qint32>(content.constData() + 20)};
    }
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    const QSize size = QImageReader(&buffer).size();
    if (isGif(bytes)) { // the picture spans the screen and the first frame; the reader tells the size of one of them
        return size.expandedTo(
            {qFromLittleEndian<quint16>(content.constData() + 6), qFromLittleEndian<quint16>(content.constData() + 8)});
    }
    return size;
}

bool statesTooManyPixels(const std::vector<uint8_t>& bytes) {
    const QSize size = statedSize(bytes);
    // A header may state a negative height, which turns the picture.
    return std::abs(qint64{size.width()} * size.height()) > pixelLimit || bytes.size() > 1 << 16;
}

/// Reads every byte that the image says it has.
void readPixels(const HT_RasterImage& image) {
    const size_t size = size_t{image.scanLineSize()} * static_cast<size_t>(std::abs(image.pixelHeight()));
    unsigned sum = 0;
    for (size_t i = 0; i < size; ++i) {
        sum += image.scanLinesBase()[i];
    }
    unsigned int count = 0;
    const tagRGBQUAD* palette = image.paletteData(count);
    for (uint32_t i = 0; palette != nullptr && i < image.numPaletteColors(); ++i) {
        sum += palette[i].rgbBlue;
    }
    sink = sum;
}

void draw(HT_RasterImage& image) {
    QImage page(64, 64, QImage::Format_ARGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    QTRenderer renderer;
    renderer.AttachDriver(&painter, {64, 64}, false);
    for (const double factor : {0.5, -0.5}) {
        HT_RasterImage_Record record{&image, 3, 30, 0.5, {}, factor};
        renderer.DrawImage(&record);
        renderer.SetAlpha(100);
    }
}

void askEverything(HT_RasterImage& image) {
    const bool isAbsent = image.colorDepth() == -1;
    require(isAbsent == (image.getBitmapInfo() == nullptr));
    require(isAbsent == (image.scanLinesBase() == nullptr));
    require(isAbsent == (image.pixelWidth() == 0));
    if (std::abs(qint64{image.pixelWidth()} * image.pixelHeight()) > pixelLimit) {
        return; // some readers tell the size only with the pixels
    }
    require(image.hasAlpha() || image.getTransparency() != 1);
    require(int64_t{image.scanLineSize()} * 8 >= int64_t{image.pixelWidth()} * image.colorDepth());
    unsigned int count = 0;
    require(image.numPaletteColors() == 0 || image.paletteData(count) != nullptr);
    readPixels(image);
    draw(image);
    image.addAlpha(90);
    image.flip();
    draw(image);
    void* data = nullptr;
    unsigned long size = 0;
    if (image.convertTo(L"BMP", &data, &size, 50) != 0) {
        require(data != nullptr && size > 0);
        image.freeConvert();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const QtMessageHandler silenced = qInstallMessageHandler(ignoreMessage); // readers complain of most inputs
    require(silenced != nullptr);
    std::vector<uint8_t> bytes(data, data + size);
    if (statesTooManyPixels(bytes)) {
        return 0;
    }
    const auto decoded = RasterImageFactory::CreateFromDibImage(bytes.data(), static_cast<int>(size));
    askEverything(*decoded);
    if (isPng(bytes) && decoded->colorDepth() == -1) {
        return 0; // the image library would take up to a gigabyte for a chunk before it gives up on it
    }
    if (auto library = Imgo::Image::LoadBytes(bytes.data(), size)) {
        askEverything(*RasterImageFactory::CreateFromGiRasterImage(library.release()));
    }
    return 0;
}
