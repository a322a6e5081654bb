// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "device/OutputDevice.h"
#include "device/svg/SvgSink.h"
#include "device/vector/VectorPaintDevice.h"

namespace kelplot {

/// An SVG file of the sheet's true size.
class SvgDevice final : public OutputDevice {
public:
    explicit SvgDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void layerChanged(const QString& name) override { m_sink.setLayer(name); }
    void pictureFollows(const QByteArray& file) override { m_sink.setPictureFile(file); }
    void finish() override;

private:
    QString m_path;
    OutputFile m_file;
    QSize m_size;
    SvgSink m_sink;
    VectorPaintDevice m_device;
    QPainter m_painter;
};

} // namespace kelplot
