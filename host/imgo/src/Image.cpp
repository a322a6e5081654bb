// SPDX-License-Identifier: BSD-3-Clause
#include "imgo.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <vector>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QVector>

namespace {

// The smallest DIB layout that holds a picture without visible loss.
QImage::Format dibFormat(const QImage& picture) {
    if (picture.hasAlphaChannel()) {
        return QImage::Format_ARGB32;
    }
    switch (picture.format()) {
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
        return QImage::Format_Mono;
    case QImage::Format_Indexed8:
    case QImage::Format_Grayscale8:
    case QImage::Format_Grayscale16:
        return QImage::Format_Indexed8;
    default:
        return QImage::Format_BGR888;
    }
}

QImage dibRows(QImage picture) {
    if (picture.format() == QImage::Format_Grayscale16) { // cannot be given a palette directly
        picture = std::move(picture).convertToFormat(QImage::Format_Grayscale8);
    }
    const QImage::Format format = dibFormat(picture);
    return std::move(picture).convertToFormat(format).mirrored(false, true);
}

// A DIB's header followed by its palette.
std::vector<uint32_t> dibHeader(const QImage& rows) {
    const QVector<QRgb> colors = rows.colorTable();
    tagBITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = rows.width();
    header.biHeight = rows.height();
    header.biPlanes = 1;
    header.biBitCount = static_cast<uint16_t>(rows.depth());
    header.biXPelsPerMeter = rows.dotsPerMeterX();
    header.biYPelsPerMeter = rows.dotsPerMeterY();
    header.biClrUsed = static_cast<uint32_t>(colors.size());
    std::vector<uint32_t> words(sizeof header / sizeof(uint32_t));
    std::memcpy(words.data(), &header, sizeof header);
    for (const QRgb color : colors) {
        words.push_back(color & 0x00FFFFFF);
    }
    words.push_back(0); // a tagBITMAPINFO has room for one entry at least
    return words;
}

void multiplyOpacity(QImage& rows, int alpha) {
    for (int y = 0; y < rows.height(); ++y) {
        auto* pixels = reinterpret_cast<QRgb*>(rows.scanLine(y));
        for (int x = 0; x < rows.width(); ++x) {
            const auto product = std::lround(alpha / 255.0 * qAlpha(pixels[x]));
            const auto opacity = static_cast<QRgb>(std::clamp(product, 0L, 255L));
            pixels[x] = (pixels[x] & 0x00FFFFFF) | opacity << 24;
        }
    }
}

bool hasTranslucentPixel(const QImage& rows) {
    for (int y = 0; y < rows.height(); ++y) {
        const auto* pixels = reinterpret_cast<const QRgb*>(rows.constScanLine(y));
        if (std::any_of(pixels, pixels + rows.width(), [](QRgb pixel) { return qAlpha(pixel) != 255; })) {
            return true;
        }
    }
    return false;
}

} // namespace

struct Imgo::Image::Data {
    QImage rows;                  ///< the bottom row first; null when there was no memory for it
    std::vector<uint32_t> header; ///< empty until it is asked for
    DibInfo dib{};
};

Imgo::Image::Image(std::unique_ptr<Data> content) : data(std::move(content)) {
}

Imgo::Image::~Image() = default;

std::unique_ptr<Imgo::Image> Imgo::Image::Load(QIODevice& device) {
    QImage picture = QImageReader(&device).read();
    if (picture.isNull()) {
        return nullptr;
    }
    auto content = std::make_unique<Data>();
    content->rows = dibRows(std::move(picture));
    return std::unique_ptr<Image>(new Image(std::move(content)));
}

std::unique_ptr<Imgo::Image> Imgo::Image::LoadFile(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? Load(file) : nullptr;
}

std::unique_ptr<Imgo::Image> Imgo::Image::LoadBytes(const void* bytes, size_t size) {
    if (bytes == nullptr || size == 0 || size > INT_MAX) {
        return nullptr;
    }
    QByteArray content = QByteArray::fromRawData(static_cast<const char*>(bytes), static_cast<int>(size));
    QBuffer buffer(&content);
    return buffer.open(QIODevice::ReadOnly) ? Load(buffer) : nullptr;
}

const Imgo::DibInfo* Imgo::Image::GetDibInfo(bool make) {
    if (data->rows.isNull() || (data->header.empty() && !make)) {
        return nullptr;
    }
    if (data->header.empty()) {
        data->header = dibHeader(data->rows);
        data->dib = {reinterpret_cast<const tagBITMAPINFO*>(data->header.data()),
                     static_cast<uint32_t>(data->rows.colorCount()), data->rows.constBits(),
                     static_cast<uint32_t>(data->rows.bytesPerLine()), data->rows.depth()};
    }
    return &data->dib;
}

int Imgo::Image::GetDibTransparency(bool make) {
    const DibInfo* dib = GetDibInfo(make);
    if (dib == nullptr) {
        return -1;
    }
    return dib->bitCount == 32 && hasTranslucentPixel(data->rows) ? 1 : 0;
}

void Imgo::Image::AddAlphaOnCvtBmp(int alpha) {
    data->header.clear();
    data->rows = std::move(data->rows).convertToFormat(QImage::Format_ARGB32);
    multiplyOpacity(data->rows, alpha);
}
