// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Placed pictures, and the areas that cover what lies below them, which are stated in the same way.
class ImageDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    double* coordinateOf(int code);
    void takeSetting(const Group& group);
    std::vector<Vec2> boundary() const;

    Image m_image;
    bool m_covers = false; ///< the record is an area that covers
    int m_flags = 0;
    bool m_clips = false;
    std::string m_definition;     ///< handle
    std::vector<Vec2> m_vertices; ///< of the boundary, from the middle of the upper left pixel
};

/// Frames are shown on screen and on paper; other numbers but 0 mean on screen alone.
constexpr int framesPlotted = 1;

/// The objects that describe pictures: their files, and whether frames are drawn around them.
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
