// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/RasterImage.h"

#include <algorithm>
#include <cstring>

#include <QBuffer>
#include <QVector>

#include "image/Opacity.h"
#include "image/OwnImages.h"
#include "image/PngDecoder.h"

using namespace KelDriver::Internal;

namespace {

static_assert(sizeof(QRgb) == sizeof(tagRGBQUAD), "colour tables are answered as they are");

constexpr struct {
    QImage::Format format;
    int32_t code;
} pixelFormats[] = {
    {QImage::Format_MonoLSB, 0},  {QImage::Format_Mono, 1},
    {QImage::Format_Indexed8, 2}, {QImage::Format_Grayscale16, 3},
    {QImage::Format_RGB555, 4},   {QImage::Format_RGB16, 5},
    {QImage::Format_RGB888, 7},   {QImage::Format_RGB32, 8},
    {QImage::Format_ARGB32, 9},   {QImage::Format_RGBA8888_Premultiplied, 10},
};
constexpr int32_t otherPixelFormat = 15;

QByteArray encoded(const QImage& image, const wchar_t* format, unsigned long quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QByteArray formatName = QString::fromWCharArray(format).toUtf8();
    // Values outside Qt's range are clamped here as Qt would clamp them, which spares its warning.
    const int knownQuality = std::clamp(static_cast<int>(quality), -1, 100);
    const bool isSaved =
        image.convertToFormat(QImage::Format_ARGB32).save(&buffer, formatName.constData(), knownQuality);
    return isSaved ? bytes : QByteArray();
}

} // namespace

HT_RasterImageDibImpl::HT_RasterImageDibImpl(const unsigned char* data, int size) : image(decodePng(data, size)) {
    KelDriver::Internal::OwnImages::add(*this);
}

HT_RasterImageDibImpl::~HT_RasterImageDibImpl() {
    KelDriver::Internal::OwnImages::remove(*this);
}

int32_t HT_RasterImageDibImpl::pixelWidth() const {
    return image.width();
}

int32_t HT_RasterImageDibImpl::pixelHeight() const {
    return image.height();
}

int32_t HT_RasterImageDibImpl::colorDepth() const {
    return image.isNull() ? -1 : image.depth();
}

double HT_RasterImageDibImpl::resolutionWidth() const {
    return image.isNull() ? -1.0 : image.logicalDpiX();
}

double HT_RasterImageDibImpl::resolutionHeight() const {
    return image.isNull() ? -1.0 : image.logicalDpiY();
}

bool HT_RasterImageDibImpl::hasPalette() const {
    return image.colorCount() != 0;
}

bool HT_RasterImageDibImpl::hasAlpha() const {
    return image.hasAlphaChannel();
}

uint32_t HT_RasterImageDibImpl::transparentColor() const {
    return UINT32_MAX;
}

int32_t HT_RasterImageDibImpl::getTransparency() const {
    return hasTranslucentPixel(image) ? 1 : 0;
}

HT_RasterImage::SourceType HT_RasterImageDibImpl::imageSource() const {
    return SourceType(-1);
}

void HT_RasterImageDibImpl::SetImageSource(SourceType) {
}

int32_t HT_RasterImageDibImpl::pixelFormat() const {
    for (const auto& entry : pixelFormats) {
        if (entry.format == image.format()) {
            return entry.code;
        }
    }
    return otherPixelFormat;
}

uint32_t HT_RasterImageDibImpl::numPaletteColors() const {
    return static_cast<uint32_t>(image.colorCount());
}

const tagRGBQUAD* HT_RasterImageDibImpl::paletteData(unsigned int&) const {
    const QVector<QRgb> colors = image.colorTable(); // shares the image's own entries, which stay where they are
    return colors.isEmpty() ? nullptr : reinterpret_cast<const tagRGBQUAD*>(colors.constData());
}

uint32_t HT_RasterImageDibImpl::scanLineSize() const {
    return static_cast<uint32_t>(image.bytesPerLine());
}

const unsigned char* HT_RasterImageDibImpl::scanLinesBase() const {
    return image.constBits();
}

void HT_RasterImageDibImpl::scanLines(unsigned char*, unsigned int, unsigned int) const {
}

const tagBITMAPINFO* HT_RasterImageDibImpl::getBitmapInfo() const {
    if (image.isNull()) {
        return nullptr;
    }
    tagBITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = image.width();
    header.biHeight = -image.height();
    header.biPlanes = 1;
    header.biBitCount = static_cast<uint16_t>(image.depth());
    header.biClrUsed = numPaletteColors();
    bitmapInfo = {header, {}};
    return &bitmapInfo;
}

void HT_RasterImageDibImpl::bltDraw(void*, double*, double*, double*) const {
}

uint32_t HT_RasterImageDibImpl::saveAs(const wchar_t* path) {
    if (image.isNull() || path == nullptr || *path == L'\0') { // Qt complains of an empty path on standard error
        return 0;
    }
    return image.save(QString::fromWCharArray(path)) ? 1 : 0;
}

uint32_t HT_RasterImageDibImpl::convertTo(const wchar_t* format, void** data, unsigned long* size,
                                          unsigned long quality) {
    if (image.isNull() || format == nullptr || data == nullptr || size == nullptr) {
        return 0;
    }
    const QByteArray bytes = encoded(image, format, quality);
    if (bytes.isEmpty()) {
        return 0;
    }
    const auto length = static_cast<size_t>(bytes.size());
    freeConvert();
    conversionBuffer = std::make_unique<unsigned char[]>(length);
    std::memcpy(conversionBuffer.get(), bytes.constData(), length);
    *data = conversionBuffer.get();
    *size = length;
    return 1;
}

void HT_RasterImageDibImpl::freeConvert() {
    conversionBuffer.reset();
}

bool HT_RasterImageDibImpl::isMapViewOfFile() const {
    return false;
}

void HT_RasterImageDibImpl::destroy() {
}

void HT_RasterImageDibImpl::flip() {
    image = std::move(image).mirrored(false, true);
}

void HT_RasterImageDibImpl::addAlpha(int alpha) {
    multiplyOpacity(image, alpha);
}

// A member in the published interface. NOLINTNEXTLINE(readability-convert-member-functions-to-static)
int HT_RasterImageDibImpl::ConvertImageInLockMem(const tagBITMAPINFO*, const void*, const wchar_t*, void**,
                                                 unsigned long*, unsigned int) {
    return 0;
}

void HT_RasterImageDibImpl::UnlockConvertImageMem() {
}
