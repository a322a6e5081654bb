// SPDX-License-Identifier: BSD-3-Clause

// Succeeds when the library's images come from the image library that it was built against.

#include <imgo.h>
#include <keldriver/KelDriver.h>

int main() {
    auto image = RasterImageFactory::CreateFromGiRasterImage(Imgo::Image::LoadBytes(nullptr, 0).release());
    return image != nullptr && image->pixelWidth() == 6 && image->colorDepth() == 32 ? 0 : 1;
}
