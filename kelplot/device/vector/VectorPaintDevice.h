// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "device/PagePaintDevice.h"
#include "device/vector/VectorEngine.h"

namespace kelplot {

/// What a painter is begun on to draw to a vector format.
class VectorPaintDevice final : public PagePaintDevice {
public:
    /// @param sink  borrowed; outlives this
    /// @param size  of the page, in page units
    VectorPaintDevice(VectorSink& sink, QSize size, int unitsPerInch)
        : PagePaintDevice(size, unitsPerInch), m_engine(sink) {}

    /// Begins a further page, which the sink has begun already. A painter that is at work keeps its state.
    void beginPage(QSize size) {
        setSize(size);
        m_engine.beginPage();
    }

    QPaintEngine* paintEngine() const override { return &m_engine; }

private:
    mutable VectorEngine m_engine; ///< the painter's, as far as this is concerned
};

} // namespace kelplot
