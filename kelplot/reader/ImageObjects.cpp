// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/ImageObjects.h"

#include "reader/GroupValue.h"

namespace kelplot {

void ImageObjects::begin(std::string_view type) {
    m_type = type;
    m_handle.clear();
    m_path.clear();
    m_size = {};
    m_frames = 0;
}

void ImageObjects::take(const Group& group) {
    switch (group.code) {
    case 1:
        m_path = trimmed(group.value);
        break;
    case 5:
        m_handle = trimmed(group.value);
        break;
    case 10:
        m_size.x = toReal(group.value);
        break;
    case 20:
        m_size.y = toReal(group.value);
        break;
    case 70:
        m_frames = toInteger(group.value);
        break;
    default:
        break;
    }
}

void ImageObjects::end(const RecordHeader&, DrawingBuilder& builder) {
    Drawing& drawing = builder.drawing();
    if (m_type == "RASTERVARIABLES") {
        drawing.imageFrames = m_frames == framesPlotted;
    } else if (m_type == "WIPEOUTVARIABLES") {
        drawing.wipeoutFrames = m_frames == framesPlotted;
    } else {
        drawing.images[builder.image(m_handle)] = {builder.decoder().decode(m_path), m_size};
    }
}

} // namespace kelplot
