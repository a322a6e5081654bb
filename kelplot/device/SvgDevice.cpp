// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/SvgDevice.h"

#include "device/PlotMark.h"
#include "page/DeviceGrid.h"

namespace kelplot {
namespace {

std::optional<QRectF> clipOf(const OutputSetup& setup) {
    if (!setup.visible) {
        return std::nullopt;
    }
    const Box2& box = *setup.visible;
    return QRectF(QPointF(box.min.x, box.min.y) * fineUnitsPerMillimetre,
                  QPointF(box.max.x, box.max.y) * fineUnitsPerMillimetre);
}

} // namespace

SvgDevice::SvgDevice(const OutputSetup& setup)
    : m_path(setup.path), m_file(setup.path), m_stream(m_file.device(), clipOf(setup)) {
    const QSize size(fineUnits(setup.sheet.width), fineUnits(setup.sheet.height));
    m_generator.setOutputDevice(&m_stream);
    m_generator.setResolution(fineDotsPerInch);
    m_generator.setSize(size);
    m_generator.setViewBox(QRect(QPoint(0, 0), size));
    m_generator.setTitle(setup.title);
    m_generator.setDescription(QString::fromLatin1(plotMark));
    if (!m_painter.begin(&m_generator)) {
        throw outputError(m_path, QStringLiteral("cannot start an SVG document"));
    }
}

DeviceGrid SvgDevice::grid() const {
    return fineGrid();
}

void SvgDevice::clipChanged(bool isCut) {
    m_stream.addClip(isCut ? std::optional(m_painter.combinedTransform().map(m_painter.clipPath())) : std::nullopt);
    m_painter.save();
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setOpacity(1.0);
    m_painter.drawPath(SvgClipStream::mark());
    m_painter.restore();
}

void SvgDevice::finish() {
    if (!m_painter.end()) {
        throw outputError(m_path, QStringLiteral("cannot finish the SVG document"));
    }
    m_file.commit();
}

} // namespace kelplot
