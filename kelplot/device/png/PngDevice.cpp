// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/PngDevice.h"

#include <algorithm>
#include <cmath>

#include "device/png/PixelGrid.h"

namespace kelplot {
namespace {

constexpr double millimetresPerInch = 25.4;

/// What readers of PNG files take for sound.
constexpr double longestSide = 1e6;
/// Room for an A0 sheet at 1,600 dots per inch.
constexpr double mostPixels = 4.3e9;

double dotsPerInchFor(const OutputSetup& setup) {
    return setup.pixelWidth > 0 ? setup.pixelWidth * millimetresPerInch / setup.sheet.width : setup.dotsPerInch;
}

QSize pixelsFor(const OutputSetup& setup, double dotsPerInch) {
    const auto pixels = [&](double millimetres) {
        return std::max(1.0, std::round(millimetres / millimetresPerInch * dotsPerInch));
    };
    const double width = pixels(setup.sheet.width);
    const double height = pixels(setup.sheet.height);
    if (width > longestSide || height > longestSide || width * height > mostPixels) {
        throw outputError(setup.path, QStringLiteral("an image of %1 x %2 pixels is too large; choose a lower --%3")
                                          .arg(width, 0, 'f', 0)
                                          .arg(height, 0, 'f', 0)
                                          .arg(setup.pixelWidth > 0 ? QLatin1String("width") : QLatin1String("dpi")));
    }
    return {static_cast<int>(width), static_cast<int>(height)};
}

} // namespace

PngDevice::PngDevice(const OutputSetup& setup)
    : m_path(setup.path), m_dotsPerInch(dotsPerInchFor(setup)), m_size(pixelsFor(setup, m_dotsPerInch)),
      m_parts(m_size), m_file(setup.path), m_device(m_size, m_dotsPerInch), m_rows(setup.pixels),
      m_encoder(m_file.device(),
                {m_size, setup.pixels, static_cast<int>(std::lround(m_dotsPerInch / millimetresPerInch * 1000.0)),
                 setup.title}) {
    m_device.engine().setSmooth(setup.pixels != PixelKind::bilevel);
    beginBand(0);
    beginPart(0);
}

void PngDevice::beginBand(int index) {
    m_bandIndex = index;
    const QSize size = m_parts.band(index).size();
    if (m_band.size() != size) {
        m_band = QImage(size, QImage::Format_RGB32);
    }
    if (m_band.isNull()) {
        throw outputError(m_path,
                          QStringLiteral("not enough memory for %1 x %2 pixels").arg(size.width()).arg(size.height()));
    }
    m_band.fill(Qt::white);
}

std::optional<Box2> PngDevice::beginPart(int index) {
    if (m_painter.isActive()) {
        m_painter.end();
    }
    m_tile = QImage();
    const int band = index / m_parts.tilesInBand();
    if (band != m_bandIndex) {
        writeBand();
        beginBand(band);
    }
    const QRect tile = m_parts.tile(index);
    m_tile = QImage(m_band.bits() + tile.left() * qint64(sizeof(QRgb)), tile.width(), tile.height(),
                    m_band.bytesPerLine(), m_band.format());
    m_device.engine().setTile(m_tile, tile, partCount() > 1);
    if (!m_painter.begin(&m_device)) {
        throw outputError(m_path, QStringLiteral("cannot draw on an image"));
    }
    preparePixelPainter(m_painter, m_size);
    return partCount() == 1 ? std::nullopt : std::optional(unitsOf(tile));
}

void PngDevice::writeBand() {
    m_file.check(); // a large page takes long to draw
    const int top = m_parts.band(m_bandIndex).top();
    for (int row = 0; row < m_band.height(); ++row) {
        if (!m_encoder.writeRow(m_rows.bytesOf(m_band, row, top + row).data())) {
            throw outputError(m_path, QStringLiteral("not enough memory to encode an image"));
        }
    }
}

DeviceGrid PngDevice::grid() const {
    return pixelGrid(m_dotsPerInch / millimetresPerInch);
}

void PngDevice::finish() {
    m_painter.end();
    writeBand();
    if (!m_encoder.finish()) {
        throw outputError(m_path, QStringLiteral("not enough memory to encode an image"));
    }
    m_file.commit();
}

} // namespace kelplot
