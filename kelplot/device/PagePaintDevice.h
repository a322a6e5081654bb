// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPaintDevice>
#include <QSize>

namespace kelplot {

/// Tells a painter the size of a page and of its units.
class PagePaintDevice : public QPaintDevice {
public:
    PagePaintDevice(QSize size, double unitsPerInch) : m_size(size), m_unitsPerInch(unitsPerInch) {}

protected:
    void setSize(QSize size) { m_size = size; }
    int metric(PaintDeviceMetric metric) const override;

private:
    QSize m_size;
    double m_unitsPerInch;
};

} // namespace kelplot
