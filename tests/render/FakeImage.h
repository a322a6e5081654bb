// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "keldriver/RasterImage.h"

/// A driver's own image of 32 bits a pixel: answers what a test sets, and is not to be asked anything else.
class FakeImage : public HT_RasterImage {
public:
    FakeImage(int columns, int rows) : memory(static_cast<size_t>(columns) * static_cast<size_t>(std::abs(rows))) {
        header.bmiHeader.biWidth = columns;
        header.bmiHeader.biHeight = rows;
    }

    std::vector<uint32_t> memory;
    tagBITMAPINFO header{};
    const unsigned char* pixels = reinterpret_cast<const unsigned char*>(memory.data());
    const tagBITMAPINFO* info = &header;

    int32_t pixelWidth() const override { return header.bmiHeader.biWidth; }
    int32_t pixelHeight() const override { return header.bmiHeader.biHeight; }
    int32_t colorDepth() const override { return unasked(), -1; }
    double resolutionWidth() const override { return unasked(), -1; }
    double resolutionHeight() const override { return unasked(), -1; }
    bool hasPalette() const override { return unasked(), false; }
    bool hasAlpha() const override { return unasked(), false; }
    uint32_t transparentColor() const override { return unasked(), 0; }
    int32_t getTransparency() const override { return unasked(), 0; }
    SourceType imageSource() const override { return unasked(), SourceType(); }
    void SetImageSource(SourceType) override { unasked(); }
    int32_t pixelFormat() const override { return unasked(), 15; }
    uint32_t numPaletteColors() const override { return unasked(), 0; }
    const tagRGBQUAD* paletteData(unsigned int&) const override { return unasked(), nullptr; }
    uint32_t scanLineSize() const override { return unasked(), 0; }
    const unsigned char* scanLinesBase() const override { return pixels; }
    void scanLines(unsigned char*, unsigned int, unsigned int) const override { unasked(); }
    const tagBITMAPINFO* getBitmapInfo() const override { return info; }
    void bltDraw(void*, double*, double*, double*) const override { unasked(); }
    uint32_t saveAs(const wchar_t*) override { return unasked(), 0; }
    uint32_t convertTo(const wchar_t*, void**, unsigned long*, unsigned long) override { return unasked(), 0; }
    void freeConvert() override { unasked(); }
    bool isMapViewOfFile() const override { return unasked(), false; }
    void destroy() override { unasked(); }
    void flip() override { unasked(); }
    void addAlpha(int) override { unasked(); }

private:
    static void unasked() { ADD_FAILURE() << "the renderer asks what it does not need"; }
};
