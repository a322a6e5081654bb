// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "device/OutputDevice.h"
#include "device/hpgl/HpglSink.h"
#include "device/hpgl/HpglWriter.h"
#include "device/vector/VectorPaintDevice.h"

namespace kelplot {

/// HP-GL/2 for pen and raster plotters, a page or more.
class HpglDevice final : public OutputDevice {
public:
    explicit HpglDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void nextPage(const SheetSize& sheet, const QString& name) override;
    std::map<QString, size_t> shortcomings() const override { return m_sink.shortcomings(); }
    void finish() override;

private:
    OutputFile m_file;
    QByteArray m_title;
    HpglWriter m_writer;
    HpglSink m_sink;
    VectorPaintDevice m_page;
    QPainter m_painter;
};

} // namespace kelplot
