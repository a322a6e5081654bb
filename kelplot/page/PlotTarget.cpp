// SPDX-License-Identifier: GPL-2.0-or-later
#include "page/PlotTarget.h"

namespace kelplot {

Box2 PlotTarget::visibleBox() const {
    Box2 box = pageBox;
    for (const Box2& limit : limits) {
        box = box.intersected(limit);
    }
    return box;
}

} // namespace kelplot
