// SPDX-License-Identifier: BSD-3-Clause

// Images of 3000 x 3000 pixels.
//
// BM_Transparency, BM_AddAlpha: a decoded image's own operation ("ours") against a loop over its pixels ("hand").
// BM_DrawTranslucent: `DrawImage` with an opacity below 255, on a device that draws nothing, against a plain copy of
// the same bytes. BM_DrawOpaque: the same without an opacity, which copies nothing.

#include <vector>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "CountingDevice.h"
#include "keldriver/QTRenderer.h"
#include "keldriver/RasterImage.h"

namespace {

constexpr int side = 3000;

QImage opaquePicture() {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(0xFF336699);
    return image;
}

HT_RasterImagePtr decodedPicture() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    opaquePicture().save(&buffer, "PNG", 100);
    return RasterImageFactory::CreateFromDibImage(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size());
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

void transparencyByHand(benchmark::State& state) {
    const QImage image = opaquePicture();
    for (auto _ : state) {
        benchmark::DoNotOptimize(isTransparentByPixels(image));
    }
}

void addAlphaOurs(benchmark::State& state) {
    const HT_RasterImagePtr image = decodedPicture();
    for (auto _ : state) {
        image->addAlpha(250);
    }
}

void addAlphaByPixels(QImage& image, int alpha) {
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const QRgb pixel = image.pixel(x, y);
            const double product = alpha / 255.0 * qAlpha(pixel);
            const auto opacity =
                static_cast<int>(product + 0.5); // NOLINT(bugprone-incorrect-roundings): never negative
            image.setPixel(x, y, qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), opacity));
        }
    }
}

void addAlphaByHand(benchmark::State& state) {
    QImage image = opaquePicture();
    for (auto _ : state) {
        addAlphaByPixels(image, 250);
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

} // namespace

BENCHMARK(transparencyOurs)->Name("BM_Transparency/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(transparencyByHand)->Name("BM_Transparency/hand")->Unit(benchmark::kMillisecond);
BENCHMARK(addAlphaOurs)->Name("BM_AddAlpha/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(addAlphaByHand)->Name("BM_AddAlpha/hand")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawOurs, translucent, 128, 1.0)->Name("BM_DrawTranslucent/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(copyByHand)->Name("BM_DrawTranslucent/hand")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawOurs, turned, 128, -1.0)->Name("BM_DrawTurned/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(copyByHand)->Name("BM_DrawTurned/hand")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawOurs, opaque, 255, 1.0)->Name("BM_DrawOpaque/ours")->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
