// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QSvgGenerator>

#include "device/OutputDevice.h"
#include "device/SvgClipStream.h"

namespace kelplot {

/// An SVG file of the sheet's true size.
class SvgDevice final : public OutputDevice {
public:
    explicit SvgDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void clipChanged(bool isCut) override;
    void finish() override;

private:
    QString m_path;
    OutputFile m_file;
    SvgClipStream m_stream;
    QSvgGenerator m_generator;
    QPainter m_painter;
};

} // namespace kelplot
