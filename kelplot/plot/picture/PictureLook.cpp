// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/picture/PictureLook.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kelplot {

namespace {

constexpr int brightest = 255;

/// What becomes of each part of a colour.
using ToneCurve = std::array<uint8_t, brightest + 1>;

ToneCurve toneCurveFor(const PictureLook& look) {
    constexpr double neutral = 50.0;
    constexpr double full = 100.0;
    constexpr double middle = brightest / 2.0;
    // At no contrast everything is mid-grey; at full contrast only the darkest and the brightest are left.
    const double steepness =
        look.contrast <= neutral ? look.contrast / neutral : neutral / std::max(full - look.contrast, 1.0 / brightest);
    const double shift = (look.brightness - neutral) / neutral * brightest;
    ToneCurve curve{};
    for (int tone = 0; tone <= brightest; ++tone) {
        const double changed = std::clamp((tone - middle) * steepness + middle + shift, 0.0, double{brightest});
        curve[static_cast<size_t>(tone)] =
            static_cast<uint8_t>(std::lround(changed + (brightest - changed) * look.fade / full));
    }
    return curve;
}

/// What shows of a part of a colour with this opacity on white.
int onPaper(int tone, int opacity) {
    return brightest - ((brightest - tone) * opacity + brightest / 2) / brightest;
}

QRgb lookOf(QRgb pixel, const ToneCurve& curve, const PictureLook& look) {
    const auto curved = [&](int tone) {
        return int{curve[static_cast<size_t>(tone)]};
    };
    const int grey = qGray(pixel);
    const int red = curved(look.grey ? grey : qRed(pixel));
    const int green = curved(look.grey ? grey : qGreen(pixel));
    const int blue = curved(look.grey ? grey : qBlue(pixel));
    const int opacity = qAlpha(pixel);
    if (look.transparent) {
        return qRgba(red, green, blue, opacity);
    }
    return qRgb(onPaper(red, opacity), onPaper(green, opacity), onPaper(blue, opacity));
}

} // namespace

void applyLook(const PictureLook& look, QImage& image) {
    const ToneCurve curve = toneCurveFor(look);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(row, row + image.width(), row, [&](QRgb pixel) { return lookOf(pixel, curve, look); });
    }
}

} // namespace kelplot
