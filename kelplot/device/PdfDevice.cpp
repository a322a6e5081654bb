// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/PdfDevice.h"

#include <QDir>
#include <QPageLayout>

#include "device/PdfOutline.h"
#include "page/DeviceGrid.h"

namespace kelplot {

namespace {

/// The writer states the page in whole points, so its lower edge may be a sixth of a millimetre off. The plot is placed
/// from the upper edge and keeps its size.
QPageLayout pageLayoutFor(const SheetSize& sheet) {
    const QPageSize page(QSizeF(sheet.width, sheet.height), QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
    return {page, QPageLayout::Portrait, QMarginsF(0.0, 0.0, 0.0, 0.0)};
}

} // namespace

PdfDevice::PdfDevice(const OutputSetup& setup)
    : m_path(setup.path), m_file(setup.path), m_pageNames(setup.pageName), m_pagesStream(m_pages),
      m_writer(&m_pagesStream) {
    if (!m_pages.open()) {
        throw outputError(m_path, QStringLiteral("no temporary file: ") + m_pages.errorString());
    }
    m_writer.setPageLayout(pageLayoutFor(setup.sheet));
    m_writer.setResolution(fineDotsPerInch);
    m_writer.setTitle(setup.title);
    m_writer.setCreator(QStringLiteral("kelplot"));
    if (!m_painter.begin(&m_writer)) {
        throw outputError(m_path, QStringLiteral("cannot start a PDF document"));
    }
}

DeviceGrid PdfDevice::grid() const {
    return fineGrid();
}

void PdfDevice::nextPage(const SheetSize& sheet, const QString& name) {
    m_pageNames << name;
    if (!m_writer.setPageLayout(pageLayoutFor(sheet)) || !m_writer.newPage()) {
        throw outputError(m_path, QStringLiteral("cannot start a further page"));
    }
    const QRect page(0, 0, m_writer.width(), m_writer.height());
    m_painter.setWindow(page);
    m_painter.setViewport(page);
}

/// Moves the pages into the output file.
void PdfDevice::addOutline() {
    const bool isFlushed = m_pages.flush();
    const QString failure = m_pagesStream.failure();
    if (!failure.isEmpty() || !isFlushed) {
        throw outputError(m_path, QStringLiteral("temporary file in %1: %2")
                                      .arg(QDir::tempPath(), failure.isEmpty() ? m_pages.errorString() : failure));
    }
    m_pages.seek(0);
    try {
        copyWithOutline(m_pages, m_pageNames, m_file);
    } catch (const OutputError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw outputError(m_path, QString::fromStdString(error.what()));
    }
}

void PdfDevice::finish() {
    if (!m_painter.end()) {
        throw outputError(m_path, QStringLiteral("cannot finish the PDF document"));
    }
    addOutline();
    m_file.commit();
}

} // namespace kelplot
