#pragma once

#include <QSvgGenerator>

#include "device/OutputDevice.h"

namespace kelplot {

/// An SVG file of the sheet's true size.
class SvgDevice final : public OutputDevice {
public:
    explicit SvgDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void finish() override;

private:
    QString m_path;
    OutputFile m_file;
    QSvgGenerator m_generator;
    QPainter m_painter;
};

} // namespace kelplot
