// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <sstream>
#include <string>

#include "keldriver/RasterImage.h"

/// What an image answers to all questions, in one line. The count that its palette may change is 5 before.
inline std::string answersOf(const HT_RasterImage& image) {
    std::ostringstream text;
    unsigned int count = 5;
    const auto mark = [](const void* pointer) {
        return pointer != nullptr ? " yes" : " no";
    };
    text << image.pixelWidth() << " x " << image.pixelHeight() << " x " << image.colorDepth();
    text << ", resolution " << image.resolutionWidth() << " x " << image.resolutionHeight();
    text << ", palette " << image.hasPalette() << mark(image.paletteData(count));
    text << ' ' << count << ' ' << image.numPaletteColors();
    text << ", alpha " << image.hasAlpha() << ' ' << image.getTransparency() << ", format " << image.pixelFormat();
    text << ", rows of " << image.scanLineSize() << mark(image.scanLinesBase());
    text << ", header" << mark(image.getBitmapInfo()) << (image.isMapViewOfFile() ? ", mapped" : "");
    return text.str();
}
