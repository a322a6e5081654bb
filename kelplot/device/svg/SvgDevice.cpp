// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/svg/SvgDevice.h"

#include "page/DeviceGrid.h"

namespace kelplot {

SvgDevice::SvgDevice(const OutputSetup& setup)
    : m_path(setup.path), m_file(setup.path), m_size(fineUnits(setup.sheet.width), fineUnits(setup.sheet.height)),
      m_sink(m_file.device(), m_size, fineUnitsPerMillimetre, setup.title), m_device(m_sink, m_size, fineDotsPerInch) {
    if (!m_painter.begin(&m_device)) {
        throw outputError(m_path, QStringLiteral("cannot start an SVG document"));
    }
}

DeviceGrid SvgDevice::grid() const {
    return fineGrid();
}

void SvgDevice::finish() {
    m_painter.end();
    m_sink.finish();
    m_file.commit();
}

} // namespace kelplot
