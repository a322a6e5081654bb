// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/PagePaintDevice.h"

#include <cmath>
#include <limits>

namespace kelplot {

int PagePaintDevice::metric(PaintDeviceMetric metric) const {
    constexpr double millimetresPerInch = 25.4;
    const auto millimetres = [&](int units) {
        return static_cast<int>(std::lround(units / m_unitsPerInch * millimetresPerInch));
    };
    switch (metric) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmWidthMM:
        return millimetres(m_size.width());
    case PdmHeightMM:
        return millimetres(m_size.height());
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return static_cast<int>(std::lround(m_unitsPerInch));
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    }
    return 0;
}

} // namespace kelplot
