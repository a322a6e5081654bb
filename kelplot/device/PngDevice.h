// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>

#include "device/OutputDevice.h"

namespace kelplot {

/// A PNG image on white ground.
class PngDevice final : public OutputDevice {
public:
    explicit PngDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void finish() override;

private:
    QString m_path;
    int m_dotsPerInch;
    OutputFile m_file;
    QImage m_image;
    QPainter m_painter;
};

} // namespace kelplot
