// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/RasterImage.h"

/// A driver's own image: answers what a test sets, and nothing else.
class FakeImage : public HT_RasterImage {
public:
    int32_t width = 0;
    int32_t height = 0;
    const unsigned char* pixels = nullptr;
    const tagBITMAPINFO* info = nullptr;

    int32_t pixelWidth() const override { return width; }
    int32_t pixelHeight() const override { return height; }
    int32_t colorDepth() const override { return -1; }
    double resolutionWidth() const override { return -1; }
    double resolutionHeight() const override { return -1; }
    bool hasPalette() const override { return false; }
    bool hasAlpha() const override { return false; }
    uint32_t transparentColor() const override { return 0; }
    int32_t getTransparency() const override { return 0; }
    SourceType imageSource() const override { return {}; }
    void SetImageSource(SourceType) override {}
    int32_t pixelFormat() const override { return 15; }
    uint32_t numPaletteColors() const override { return 0; }
    const tagRGBQUAD* paletteData(unsigned int&) const override { return nullptr; }
    uint32_t scanLineSize() const override { return 0; }
    const unsigned char* scanLinesBase() const override { return pixels; }
    void scanLines(unsigned char*, unsigned int, unsigned int) const override {}
    const tagBITMAPINFO* getBitmapInfo() const override { return info; }
    void bltDraw(void*, double*, double*, double*) const override {}
    uint32_t saveAs(const wchar_t*) override { return 0; }
    uint32_t convertTo(const wchar_t*, void**, unsigned long*, unsigned long) override { return 0; }
    void freeConvert() override {}
    bool isMapViewOfFile() const override { return false; }
    void destroy() override {}
    void flip() override {}
    void addAlpha(int) override {}
};
