// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <cstddef>

#include "keldriver/RasterImage.h"

namespace kelplot {

/// A picture of a driver's own, which lends the renderer the memory of a `QImage`.
///
/// It answers what drawing and kelplot ask of a picture. It writes, encodes and converts nothing.
class QImagePicture final : public HT_RasterImage {
public:
    /// @param image  of `Format_ARGB32`
    explicit QImagePicture(QImage image);

    int32_t pixelWidth() const override { return m_image.width(); }
    int32_t pixelHeight() const override { return m_image.height(); }
    int32_t colorDepth() const override { return m_image.depth(); }
    double resolutionWidth() const override { return m_image.logicalDpiX(); }
    double resolutionHeight() const override { return m_image.logicalDpiY(); }
    bool hasPalette() const override { return false; }
    bool hasAlpha() const override { return true; }
    uint32_t transparentColor() const override { return UINT32_MAX; }
    int32_t getTransparency() const override;
    SourceType imageSource() const override { return static_cast<SourceType>(-1); }
    void SetImageSource(SourceType) override {}
    int32_t pixelFormat() const override;
    uint32_t numPaletteColors() const override { return 0; }
    const tagRGBQUAD* paletteData(unsigned int&) const override { return nullptr; }
    uint32_t scanLineSize() const override { return static_cast<uint32_t>(m_image.bytesPerLine()); }
    const unsigned char* scanLinesBase() const override { return m_image.constBits(); }
    void scanLines(unsigned char*, unsigned int, unsigned int) const override {}
    const tagBITMAPINFO* getBitmapInfo() const override { return &m_info; }
    void bltDraw(void*, double*, double*, double*) const override {}
    uint32_t saveAs(const wchar_t*) override { return UINT32_MAX; }
    uint32_t convertTo(const wchar_t*, void**, unsigned long*, unsigned long) override { return 0; }
    void freeConvert() override {}
    bool isMapViewOfFile() const override { return false; }
    void destroy() override {}
    void flip() override {}
    void addAlpha(int) override {}

private:
    QImage m_image;
    tagBITMAPINFO m_info{}; ///< the top row comes first
};

/// A picture with these pixels; null without memory for it.
HT_RasterImagePtr pictureOf(const QImage& image);

/// The picture in the bytes of a PNG file; null where they hold none.
HT_RasterImagePtr pictureOfPng(const void* data, size_t size);

/// A copy of the pixels of a picture with 32 bits per pixel, in `Format_ARGB32`.
QImage pixelsOf(const HT_RasterImage& picture);

} // namespace kelplot
