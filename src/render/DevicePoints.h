// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

#include <QPoint>
#include <QPointF>

#include "geometry/Numeric.h"
#include "keldriver/Types.h"

namespace KelDriver::Internal {

/// The device pixel of a point in plot units; far points saturate.
inline QPoint snapToDevice(const HT_Double_Point& point, double scale) {
    return {roundToInt32(point.x * scale), roundToInt32(point.y * scale)};
}

/// Device points of one primitive. Up to `inCallPoints` of them cost no allocation.
template <int inCallPoints>
class DevicePoints {
public:
    /// Makes room for the pixels of `count` points.
    explicit DevicePoints(int count) {
        if (count > inCallPoints) {
            m_heap = std::make_unique<QPointF[]>(static_cast<size_t>(std::max(count, 2 * inCallPoints)));
            m_first = m_heap.get();
        }
    }
    DevicePoints(const DevicePoints&) = delete;
    DevicePoints& operator=(const DevicePoints&) = delete;

    int size() const { return m_used; }
    const QPointF* data() const { return m_first; }

    /// Takes the pixels of all points.
    void snapAll(const HT_Double_Point* source, int count, double scale) {
        for (m_used = 0; m_used < count; ++m_used) {
            new (m_first + m_used) QPointF(snapToDevice(source[m_used], scale));
        }
    }

    /// Takes the pixels of `count` points, at least one, but those on the same pixel as the one before.
    void snapDistinct(const HT_Double_Point* source, int count, double scale) {
        QPoint last = snapToDevice(source[0], scale);
        QPointF* end = m_first;
        new (end++) QPointF(last);
        for (int i = 1; i < count; ++i) {
            const QPoint pixel = snapToDevice(source[i], scale);
            if (pixel != last) {
                new (end++) QPointF(pixel);
                last = pixel;
            }
        }
        m_used = static_cast<int>(end - m_first);
    }

private:
    alignas(QPointF) std::byte m_inCall[sizeof(QPointF) * inCallPoints]; // not initialised: that would cost time
    std::unique_ptr<QPointF[]> m_heap;
    QPointF* m_first = static_cast<QPointF*>(static_cast<void*>(m_inCall));
    int m_used = 0;
};

using PolylinePoints = DevicePoints<2048>;
using CurvePoints = DevicePoints<1024>;

} // namespace KelDriver::Internal
