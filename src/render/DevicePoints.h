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
            heap = std::make_unique<QPointF[]>(static_cast<size_t>(std::max(count, 2 * inCallPoints)));
            first = heap.get();
        }
    }
    DevicePoints(const DevicePoints&) = delete;
    DevicePoints& operator=(const DevicePoints&) = delete;

    int size() const { return used; }
    const QPointF* data() const { return first; }

    /// Takes the pixels of all points.
    void snapAll(const HT_Double_Point* source, int count, double scale) {
        for (used = 0; used < count; ++used) {
            new (first + used) QPointF(snapToDevice(source[used], scale));
        }
    }

    /// Takes the pixels of `count` points, at least one, but those on the same pixel as the one before.
    void snapDistinct(const HT_Double_Point* source, int count, double scale) {
        QPoint last = snapToDevice(source[0], scale);
        QPointF* end = first;
        new (end++) QPointF(last);
        for (int i = 1; i < count; ++i) {
            const QPoint pixel = snapToDevice(source[i], scale);
            if (pixel != last) {
                new (end++) QPointF(pixel);
                last = pixel;
            }
        }
        used = static_cast<int>(end - first);
    }

private:
    alignas(QPointF) std::byte inCall[sizeof(QPointF) * inCallPoints]; // not initialised: that would cost time
    std::unique_ptr<QPointF[]> heap;
    QPointF* first = static_cast<QPointF*>(static_cast<void*>(inCall));
    int used = 0;
};

using PolylinePoints = DevicePoints<2048>;
using CurvePoints = DevicePoints<1024>;

} // namespace KelDriver::Internal
