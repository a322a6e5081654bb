// SPDX-License-Identifier: BSD-3-Clause

// Images of 3000 x 3000 pixels.
//
// Names read BM_<operation>/<side>. Transparency, AddAlpha: a decoded image's own operation ("ours") against loops that
// ask QImage for each pixel, column by column ("pixels"), and loops over its rows in memory ("rows").
// DrawTranslucent, DrawTurned, DrawOpaque: `DrawImage` with and without an opacity below 255, on a device that draws
// nothing, against a plain copy of the same bytes ("copy").

#include <array>
#include <functional>

#include <QBuffer>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "CountingDevice.h"
#include "GuiBenchmarks.h"
#include "keldriver/QTRenderer.h"
#include "keldriver/RasterImage.h"

namespace {

constexpr int side = 3000;

QByteArray pictureBytes() {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(0xFF336699);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG", 100);
    return bytes;
}

HT_RasterImagePtr decodedPicture() {
    QByteArray bytes = pictureBytes();
    return RasterImageFactory::CreateFromDibImage(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size());
}

QImage opaquePicture() {
    return QImage::fromData(pictureBytes()); // decoded, too, so that the memory of both has the same history
}

void transparencyOurs(benchmark::State& state) {
    const HT_RasterImagePtr image = decodedPicture();
    for (auto _ : state) {
        benchmark::DoNotOptimize(image->getTransparency());
    }
}

bool isTransparentByPixels(const QImage& image) {
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (qAlpha(image.pixel(x, y)) != 255) {
                return true;
            }
        }
    }
    return false;
}

bool isTransparentByRows(const QImage& image) {
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        QRgb common = ~0U;
        for (int x = 0; x < width; ++x) {
            common &= row[x];
        }
        if (qAlpha(common) != 255) {
            return true;
        }
    }
    return false;
}

void transparencyByHand(benchmark::State& state, bool (*isTransparent)(const QImage&)) {
    const QImage image = opaquePicture();
    for (auto _ : state) {
        benchmark::DoNotOptimize(isTransparent(image));
    }
}

void addAlphaOurs(benchmark::State& state) {
    const HT_RasterImagePtr image = decodedPicture();
    for (auto _ : state) {
        image->addAlpha(250);
    }
}

int opacityOf(int alpha, QRgb pixel) {
    const double product = alpha / 255.0 * qAlpha(pixel);
    return static_cast<int>(product + 0.5); // NOLINT(bugprone-incorrect-roundings): never negative
}

void addAlphaByPixels(QImage& image, int alpha) {
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const QRgb pixel = image.pixel(x, y);
            image.setPixel(x, y, qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), opacityOf(alpha, pixel)));
        }
    }
}

void addAlphaByRows(QImage& image, int alpha) {
    std::array<QRgb, 256> opacities{};
    for (QRgb old = 0; old < opacities.size(); ++old) {
        opacities[old] = static_cast<QRgb>(opacityOf(alpha, old << 24)) << 24;
    }
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            row[x] = (row[x] & RGB_MASK) | opacities[static_cast<size_t>(qAlpha(row[x]))];
        }
    }
}

void addAlphaByHand(benchmark::State& state, void (*add)(QImage&, int)) {
    QImage image = opaquePicture();
    for (auto _ : state) {
        add(image, 250);
    }
}

void drawOurs(benchmark::State& state, unsigned char opacity, double factor) {
    const HT_RasterImagePtr image = decodedPicture();
    CountingDevice device;
    QPainter painter(&device);
    QTRenderer renderer;
    renderer.AttachDriver(&painter, {side, side}, false);
    renderer.SetAlpha(opacity);
    HT_RasterImage_Record record{image.get(), 0, 0, 1, {}, factor};
    for (auto _ : state) {
        renderer.DrawImage(&record);
    }
}

void copyByHand(benchmark::State& state) {
    const QImage image = opaquePicture();
    for (auto _ : state) {
        benchmark::DoNotOptimize(image.copy().constBits());
    }
}

void add(const char* name, const std::function<void(benchmark::State&)>& run) {
    benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
}

void registerAll() {
    using benchmark::State;
    add("BM_Transparency/ours", transparencyOurs);
    add("BM_Transparency/pixels", [](State& state) { transparencyByHand(state, isTransparentByPixels); });
    add("BM_Transparency/rows", [](State& state) { transparencyByHand(state, isTransparentByRows); });
    add("BM_AddAlpha/ours", addAlphaOurs);
    add("BM_AddAlpha/pixels", [](State& state) { addAlphaByHand(state, addAlphaByPixels); });
    add("BM_AddAlpha/rows", [](State& state) { addAlphaByHand(state, addAlphaByRows); });
    add("BM_DrawTranslucent/ours", [](State& state) { drawOurs(state, 128, 1.0); });
    add("BM_DrawTranslucent/copy", copyByHand);
    add("BM_DrawTurned/ours", [](State& state) { drawOurs(state, 128, -1.0); });
    add("BM_DrawTurned/copy", copyByHand);
    add("BM_DrawOpaque/ours", [](State& state) { drawOurs(state, 255, 1.0); });
    add("BM_DrawOpaque/copy", copyByHand);
}

} // namespace

int main(int argc, char** argv) {
    return runGuiBenchmarks(argc, argv, registerAll);
}
