// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>

#include "device/OutputDevice.h"
#include "device/png/PageParts.h"
#include "device/png/PixelRows.h"
#include "device/png/PngEncoder.h"
#include "device/png/TileEngine.h"

namespace kelplot {

/// A PNG image on white ground. A large page is drawn and written in parts, so that its pixels are never held whole.
class PngDevice final : public OutputDevice {
public:
    explicit PngDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    int partCount() const override { return m_parts.count(); }
    std::optional<Box2> beginPart(int index) override;
    void finish() override;

private:
    void beginBand(int index);
    void writeBand();

    QString m_path;
    double m_dotsPerInch;
    QSize m_size; ///< pixels
    PageParts m_parts;
    OutputFile m_file;
    QImage m_band;
    int m_bandIndex = 0;
    QImage m_tile; ///< shares the pixels of the band
    TileDevice m_device;
    QPainter m_painter;
    PixelRows m_rows;
    PngEncoder m_encoder;
};

} // namespace kelplot
