// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "device/OutputDevice.h"
#include "device/pdf/PdfSink.h"
#include "device/vector/VectorPaintDevice.h"

namespace kelplot {

/// A PDF file of one page or more. An outline names the pages where there are several.
class PdfDevice final : public OutputDevice {
public:
    explicit PdfDevice(const OutputSetup& setup);
    ~PdfDevice() override;

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void layerChanged(const QString& name) override { m_sink.setLayer(name); }
    bool drawText(const DeviceText& text) override;
    void nextPage(const SheetSize& sheet, const QString& name) override;
    void finish() override;

private:
    OutputFile m_file;
    PdfDocument m_document;
    PdfSink m_sink;
    VectorPaintDevice m_page;
    QPainter m_painter;
};

} // namespace kelplot
