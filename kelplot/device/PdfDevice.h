// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPdfWriter>

#include "device/OutputDevice.h"

namespace kelplot {

/// A PDF file of one page or more.
class PdfDevice final : public OutputDevice {
public:
    explicit PdfDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void nextPage(const SheetSize& sheet) override;
    void finish() override;

private:
    QString m_path;
    OutputFile m_file;
    QPdfWriter m_writer;
    QPainter m_painter;
};

} // namespace kelplot
