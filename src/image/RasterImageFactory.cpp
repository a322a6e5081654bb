// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/RasterImage.h"

namespace {

template <typename Concrete>
HT_RasterImagePtr owned(Concrete* image) {
    return HT_RasterImagePtr(image,
                             HT_RasterImageDeleter([](HT_RasterImage* held) { delete static_cast<Concrete*>(held); }));
}

} // namespace

HT_RasterImagePtr RasterImageFactory::CreateFromGiRasterImage(Imgo::Image* image) {
    if (image == nullptr) {
        return {};
    }
    return owned(new HT_RasterImageImpl(image));
}

HT_RasterImagePtr RasterImageFactory::CreateFromDibImage(unsigned char* data, int size) {
    return owned(new HT_RasterImageDibImpl(data, size));
}

HT_RasterImage* RasterImageFactory::CreateFromDibImage(const tagBITMAPINFO*, void*, void*, bool) {
    return nullptr;
}
