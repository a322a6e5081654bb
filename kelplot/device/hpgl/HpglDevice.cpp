// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/hpgl/HpglDevice.h"

#include <cmath>

#include "page/DeviceGrid.h"

namespace kelplot {
namespace {

constexpr double unitsPerMillimetre = 40.0;
constexpr int unitsPerInch = 1016;

QSize plotterUnits(const SheetSize& sheet) {
    const auto units = [](double millimetres) {
        return static_cast<int>(std::lround(millimetres * unitsPerMillimetre));
    };
    return {units(sheet.width), units(sheet.height)};
}

} // namespace

HpglDevice::HpglDevice(const OutputSetup& setup)
    : m_file(setup.path), m_title(setup.title.toUtf8()),
      m_writer([this](const QByteArray& commands) { m_file.write(commands); }),
      m_sink(m_writer, plotterUnits(setup.sheet)), m_page(m_sink, plotterUnits(setup.sheet), unitsPerInch) {
    m_writer.beginPage(plotterUnits(setup.sheet), m_title);
    if (!m_painter.begin(&m_page)) {
        throw outputError(setup.path, QStringLiteral("cannot start an HP-GL/2 plot"));
    }
}

DeviceGrid HpglDevice::grid() const {
    // As on other devices without pixels: a line of a tenth of a millimetre shows.
    return {unitsPerMillimetre, 4.0, 0.4};
}

void HpglDevice::nextPage(const SheetSize& sheet, const QString& /*name*/) {
    const QSize size = plotterUnits(sheet);
    m_writer.endPage();
    m_writer.beginPage(size, m_title);
    m_sink.setPage(size);
    m_page.beginPage(size);
    m_painter.setWindow(QRect(QPoint(), size));
    m_painter.setViewport(QRect(QPoint(), size));
}

void HpglDevice::finish() {
    m_painter.end();
    m_writer.endPage();
    m_file.commit();
}

} // namespace kelplot
