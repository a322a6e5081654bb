// SPDX-License-Identifier: BSD-3-Clause

// A host application's own image library, whose every image is seven pixels wide and larger than the class says.

#include "imgo.h"

#include <new>

namespace {

constexpr size_t ownSize = 200;

} // namespace

struct Imgo::Image::Data {};

Imgo::Image::Image(std::unique_ptr<Data>) {
}

Imgo::Image::~Image() = default;

std::unique_ptr<Imgo::Image> Imgo::Image::LoadBytes(const void*, size_t) {
    return std::unique_ptr<Image>(new (::operator new(ownSize)) Image(nullptr));
}

// NOLINTBEGIN(readability-convert-member-functions-to-static): the image library's header declares them
const Imgo::DibInfo* Imgo::Image::GetDibInfo(bool) {
    static const tagBITMAPINFO header{{40, 7, 1, 1, 24, 0, 0, 0, 0, 0, 0}, {}};
    static const unsigned char pixels[24]{};
    static const DibInfo dib{&header, 0, pixels, sizeof pixels, 24};
    return &dib;
}

int Imgo::Image::GetDibTransparency(bool) {
    return 0;
}

void Imgo::Image::AddAlphaOnCvtBmp(int) {
}
// NOLINTEND(readability-convert-member-functions-to-static)
