// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfDevice.h"

#include "device/pdf/PdfUnits.h"
#include "page/DeviceGrid.h"

namespace kelplot {
namespace {

QSize sizeOf(const SheetSize& sheet) {
    return {fineUnits(sheet.width), fineUnits(sheet.height)};
}

} // namespace

PdfDevice::PdfDevice(const OutputSetup& setup)
    : m_file(setup.path), m_document(m_file, setup.title),
      m_sink(m_document, pointsPerMillimetre / fineUnitsPerMillimetre),
      m_page(m_sink, sizeOf(setup.sheet), fineDotsPerInch) {
    m_sink.beginPage(setup.sheet, setup.pageName);
    if (!m_painter.begin(&m_page)) {
        throw outputError(setup.path, QStringLiteral("cannot start a PDF document"));
    }
}

PdfDevice::~PdfDevice() = default;

DeviceGrid PdfDevice::grid() const {
    return fineGrid();
}

bool PdfDevice::drawText(const DeviceText& text) {
    m_painter.drawPath(QPainterPath()); // draws nothing, but brings the clip up to date
    m_sink.drawText(text.text, text.font, text.place * m_painter.combinedTransform(), text.ink,
                    {m_painter.opacity(), m_painter.compositionMode()});
    return true;
}

void PdfDevice::nextPage(const SheetSize& sheet, const QString& name) {
    m_sink.beginPage(sheet, name);
    m_page.beginPage(sizeOf(sheet));
    const QRect page(QPoint(0, 0), sizeOf(sheet));
    m_painter.setWindow(page);
    m_painter.setViewport(page);
}

void PdfDevice::finish() {
    m_painter.end();
    m_sink.finish();
    m_file.commit();
}

} // namespace kelplot
