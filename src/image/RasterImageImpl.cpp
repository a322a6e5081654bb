// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/RasterImage.h"

#include <new>

#include "image/OwnImages.h"
#include "imgo.h"

using namespace KelDriver::Internal;

namespace {

constexpr double centimetresPerMetre = 100.0;

// What the library says about an image; null when the image is absent.
const Imgo::DibInfo* describe(Imgo::Image* image) {
    return image != nullptr ? image->GetDibInfo(true) : nullptr;
}

double perCentimetre(int32_t perMetre) {
    return perMetre / centimetresPerMetre;
}

} // namespace

HT_RasterImageImpl::HT_RasterImageImpl(Imgo::Image* libraryImage) : image(libraryImage) {
    KelDriver::Internal::OwnImages::add(*this);
}

HT_RasterImageImpl::~HT_RasterImageImpl() {
    KelDriver::Internal::OwnImages::remove(*this);
    if (image != nullptr) {
        image->~Image();
        // Not a delete expression, which would pass on a size: an application's own image may be larger.
        ::operator delete(static_cast<void*>(image));
    }
}

int32_t HT_RasterImageImpl::pixelWidth() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? dib->info->bmiHeader.biWidth : 0;
}

int32_t HT_RasterImageImpl::pixelHeight() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? dib->info->bmiHeader.biHeight : 0;
}

int32_t HT_RasterImageImpl::colorDepth() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? dib->bitCount : -1;
}

double HT_RasterImageImpl::resolutionWidth() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? perCentimetre(dib->info->bmiHeader.biXPelsPerMeter) : -1.0;
}

double HT_RasterImageImpl::resolutionHeight() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? perCentimetre(dib->info->bmiHeader.biYPelsPerMeter) : -1.0;
}

bool HT_RasterImageImpl::hasPalette() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr && dib->paletteCount != 0;
}

bool HT_RasterImageImpl::hasAlpha() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr && dib->bitCount == 32;
}

uint32_t HT_RasterImageImpl::transparentColor() const {
    return UINT32_MAX;
}

int32_t HT_RasterImageImpl::getTransparency() const {
    return describe(image) != nullptr ? image->GetDibTransparency(true) : -1;
}

HT_RasterImage::SourceType HT_RasterImageImpl::imageSource() const {
    return SourceType(-1);
}

void HT_RasterImageImpl::SetImageSource(SourceType) {
}

int32_t HT_RasterImageImpl::pixelFormat() const {
    return 15;
}

uint32_t HT_RasterImageImpl::numPaletteColors() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? dib->info->bmiHeader.biClrUsed : 0;
}

const tagRGBQUAD* HT_RasterImageImpl::paletteData(unsigned int& count) const {
    const Imgo::DibInfo* dib = describe(image);
    if (dib == nullptr) {
        return nullptr;
    }
    count = dib->paletteCount;
    return dib->info->bmiColors;
}

uint32_t HT_RasterImageImpl::scanLineSize() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? dib->scanLineSize : 0;
}

const unsigned char* HT_RasterImageImpl::scanLinesBase() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? dib->pixels : nullptr;
}

void HT_RasterImageImpl::scanLines(unsigned char*, unsigned int, unsigned int) const {
}

const tagBITMAPINFO* HT_RasterImageImpl::getBitmapInfo() const {
    const Imgo::DibInfo* dib = describe(image);
    return dib != nullptr ? dib->info : nullptr;
}

void HT_RasterImageImpl::bltDraw(void*, double*, double*, double*) const {
}

uint32_t HT_RasterImageImpl::saveAs(const wchar_t*) {
    return UINT32_MAX;
}

uint32_t HT_RasterImageImpl::convertTo(const wchar_t*, void**, unsigned long*, unsigned long) {
    describe(image); // the answer is not used; that it is asked for is part of the interface
    return 0;
}

void HT_RasterImageImpl::freeConvert() {
}

bool HT_RasterImageImpl::isMapViewOfFile() const {
    return false;
}

void HT_RasterImageImpl::destroy() {
    delete this;
}

void HT_RasterImageImpl::flip() {
}

void HT_RasterImageImpl::addAlpha(int alpha) {
    if (describe(image) != nullptr) {
        image->AddAlphaOnCvtBmp(alpha);
    }
}

// A member in the published interface. NOLINTNEXTLINE(readability-convert-member-functions-to-static)
int HT_RasterImageImpl::ConvertImageInLockMem(const tagBITMAPINFO*, const void*, const wchar_t*, void**, unsigned long*,
                                              unsigned int) {
    return 0;
}

void HT_RasterImageImpl::UnlockConvertImageMem() {
}
