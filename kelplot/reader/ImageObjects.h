// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Frames are shown on screen and on paper; other numbers but 0 mean on screen alone.
constexpr int framesPlotted = 1;

/// The objects that tell of pictures: their files, and whether frames are drawn about them.
class ImageObjects : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::string m_type;
    std::string m_handle;
    std::string m_path; ///< as the file has it
    Vec2 m_size;
    int m_frames = 0;
};

} // namespace kelplot
