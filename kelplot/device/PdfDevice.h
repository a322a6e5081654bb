// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPdfWriter>
#include <QTemporaryFile>

#include "device/OutputDevice.h"

namespace kelplot {

/// A PDF file of one page or more. An outline names the pages where there are several.
class PdfDevice final : public OutputDevice {
public:
    explicit PdfDevice(const OutputSetup& setup);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    void nextPage(const SheetSize& sheet, const QString& name) override;
    void finish() override;

private:
    void addOutline();

    QString m_path;
    OutputFile m_file;
    QStringList m_pageNames;
    QTemporaryFile m_pages;
    WholeStream m_pagesStream;
    QPdfWriter m_writer;
    QPainter m_painter;
};

} // namespace kelplot
