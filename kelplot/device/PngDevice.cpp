// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/PngDevice.h"

#include "device/PlotMark.h"

#include <QBuffer>
#include <QImageWriter>
#include <algorithm>
#include <cmath>

namespace kelplot {
namespace {

constexpr double millimetresPerInch = 25.4;

/// Plot units per pixel. The renderer draws in whole units; with these, edges fall between pixels and are smoothed.
constexpr int unitsPerPixel = 16;

/// Qt draws lines up to a pixel wide by a shortcut that counts dashes in pixels along the steeper axis, which makes
/// them too long on slopes and curves.
constexpr int thinnestDashed = unitsPerPixel + 1;

/// The largest coordinate that the painter can draw.
constexpr int longestSide = 32767;
/// Room for an A0 sheet at 400 dots per inch, one gibibyte of pixels.
constexpr qint64 mostPixels = qint64(1) << 28;

QImage blankImage(const OutputSetup& setup) {
    const auto pixels = [&](double millimetres) {
        return std::max(1L, std::lround(millimetres / millimetresPerInch * setup.dotsPerInch));
    };
    const long width = pixels(setup.sheet.width);
    const long height = pixels(setup.sheet.height);
    const QString size = QStringLiteral("an image of %1 x %2 pixels").arg(width).arg(height);
    if (width > longestSide || height > longestSide || qint64(width) * height > mostPixels) {
        throw outputError(setup.path, size + QStringLiteral(" is too large; choose a lower --dpi"));
    }
    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull()) {
        throw outputError(setup.path, QStringLiteral("not enough memory for ") + size);
    }
    image.fill(Qt::white);
    image.setText(QStringLiteral("Software"), QString::fromLatin1(plotMark));
    const int dotsPerMetre = static_cast<int>(std::lround(setup.dotsPerInch / millimetresPerInch * 1000.0));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return image;
}

} // namespace

PngDevice::PngDevice(const OutputSetup& setup)
    : m_path(setup.path), m_dotsPerInch(setup.dotsPerInch), m_file(setup.path), m_image(blankImage(setup)) {
    if (!m_painter.begin(&m_image)) {
        throw outputError(m_path, QStringLiteral("cannot draw on an image"));
    }
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setWindow(0, 0, m_image.width() * unitsPerPixel, m_image.height() * unitsPerPixel);
    m_painter.setViewport(m_image.rect());
}

DeviceGrid PngDevice::grid() const {
    const double pixelsPerMillimetre = m_dotsPerInch / millimetresPerInch;
    return {pixelsPerMillimetre * unitsPerPixel, unitsPerPixel, unitsPerPixel / 10.0, thinnestDashed};
}

void PngDevice::finish() {
    m_painter.end();
    // On a device that fails, the encoder would print a message of its own and hide the reason.
    QBuffer encoded;
    QImageWriter writer(&encoded, "png");
    if (!writer.write(m_image)) {
        throw outputError(m_path, writer.errorString());
    }
    m_file.write(encoded.data());
    m_file.commit();
}

} // namespace kelplot
