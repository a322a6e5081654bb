// SPDX-License-Identifier: BSD-3-Clause

// A host application's own image library. Its images are larger than the class says; those of no bytes are described,
// with six pixels by four, and others are not.

#include "imgo.h"

#include <new>

std::string standInCalls; // what was asked of the images

namespace {

constexpr size_t ownSize = 200;

struct {
    tagBITMAPINFOHEADER header{40, 6, -4, 1, 8, 0, 0, 11800, 5900, 9, 0};
    tagRGBQUAD colors[2]{};
} const dib;
const unsigned char pixels[32]{};
const Imgo::DibInfo description{reinterpret_cast<const tagBITMAPINFO*>(&dib), 2, pixels, 8, 32};

} // namespace

struct Imgo::Image::Data {
    const DibInfo* dib;
};

Imgo::Image::Image(std::unique_ptr<Data> content) : data(std::move(content)) {
}

Imgo::Image::~Image() {
    standInCalls += "destroyed ";
}

std::unique_ptr<Imgo::Image> Imgo::Image::LoadBytes(const void*, size_t size) {
    auto content = std::make_unique<Data>(Data{size == 0 ? &description : nullptr});
    return std::unique_ptr<Image>(new (::operator new(ownSize)) Image(std::move(content)));
}

// NOLINTBEGIN(readability-convert-member-functions-to-static): the image library's header declares them
const Imgo::DibInfo* Imgo::Image::GetDibInfo(bool make) {
    standInCalls += "described ";
    return make ? data->dib : nullptr;
}

int Imgo::Image::GetDibTransparency(bool make) {
    return make ? 42 : 0;
}

void Imgo::Image::AddAlphaOnCvtBmp(int alpha) {
    standInCalls += "alpha " + std::to_string(alpha) + " ";
}
// NOLINTEND(readability-convert-member-functions-to-static)
