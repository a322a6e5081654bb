// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Meshes that may be smoothed by dividing their faces; they are taken as they are before.
class MeshDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    /// What the numbers of code 90 mean, which the counts before them tell.
    enum class List { none, faces, edges };

    List m_list = List::none;
    std::vector<Vec3> m_vertices;
    std::vector<int> m_faces; ///< each a count and as many vertices
    std::vector<int> m_edges; ///< pairs of vertices
};

} // namespace kelplot
