// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPaintDevice>
#include <QSize>

#include "device/vector/VectorEngine.h"

namespace kelplot {

/// What a painter is begun on to draw to a vector format.
class VectorPaintDevice final : public QPaintDevice {
public:
    /// @param sink  borrowed; outlives this
    /// @param size  of the page, in page units
    VectorPaintDevice(VectorSink& sink, QSize size, int unitsPerInch)
        : m_engine(sink), m_size(size), m_unitsPerInch(unitsPerInch) {}

    /// Begins a further page, which the sink has begun already. A painter that is at work keeps its state.
    void beginPage(QSize size) {
        m_size = size;
        m_engine.beginPage();
    }

    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    mutable VectorEngine m_engine; ///< the painter's, as far as this is concerned
    QSize m_size;
    int m_unitsPerInch;
};

} // namespace kelplot
