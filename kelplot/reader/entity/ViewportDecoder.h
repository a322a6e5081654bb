// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Viewports of layouts. The first of a layout stands for the sheet itself and is dropped.
class ViewportDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    bool takeOfView(const Group& group);

    Viewport m_viewport;
    int m_number = 0;
    bool m_usesClip = false;
    uint64_t m_clipHandle = 0;
    std::vector<uint64_t> m_frozenLayers; ///< handles
};

} // namespace kelplot
