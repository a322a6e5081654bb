// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/MeshDecoder.h"

#include <algorithm>
#include <utility>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

/// Gathers the edges between vertices that there are, each once.
class EdgeSet {
public:
    explicit EdgeSet(size_t vertices) : m_vertices(vertices) {}

    void add(int from, int to) {
        const auto [low, high] = std::minmax(from, to);
        if (low >= 0 && static_cast<size_t>(high) < m_vertices && low != high) {
            m_edges.push_back({static_cast<uint32_t>(low), static_cast<uint32_t>(high)});
        }
    }
    bool isEmpty() const { return m_edges.empty(); }
    std::vector<std::array<uint32_t, 2>> take() {
        std::sort(m_edges.begin(), m_edges.end());
        m_edges.erase(std::unique(m_edges.begin(), m_edges.end()), m_edges.end());
        return std::move(m_edges);
    }

private:
    size_t m_vertices;
    std::vector<std::array<uint32_t, 2>> m_edges;
};

void addFaces(const std::vector<int>& faces, EdgeSet& edges) {
    for (size_t start = 0; start < faces.size();) {
        const auto stated = static_cast<size_t>(std::max(faces[start], 0));
        const size_t count = std::min(stated, faces.size() - start - 1);
        const int* const corners = faces.data() + start + 1;
        for (size_t i = 0; i < count; ++i) {
            edges.add(corners[i], corners[(i + 1) % count]);
        }
        start += count + 1;
    }
}

} // namespace

void MeshDecoder::begin(std::string_view) {
    *this = MeshDecoder();
}

void MeshDecoder::take(const Group& group) {
    switch (group.code) {
    case 10:
        m_vertices.push_back({toReal(group.value), 0.0, 0.0});
        break;
    case 20:
    case 30:
        if (!m_vertices.empty()) {
            takePoint(group, 10, m_vertices.back());
        }
        break;
    case 93:
        m_list = List::faces;
        break;
    case 94:
        m_list = List::edges;
        break;
    case 95:
        m_list = List::none;
        break;
    case 90:
        if (m_list != List::none) {
            (m_list == List::faces ? m_faces : m_edges).push_back(toInteger(group.value));
        }
        break;
    default:
        break;
    }
}

void MeshDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    EdgeSet edges(m_vertices.size());
    addFaces(m_faces, edges);
    for (size_t i = 0; i + 1 < m_edges.size(); i += 2) {
        edges.add(m_edges[i], m_edges[i + 1]);
    }
    if (edges.isEmpty()) {
        builder.addUnplotted(header, "MESH without edges");
        return;
    }
    builder.addInWorld(header, Mesh{std::move(m_vertices), edges.take()});
}

} // namespace kelplot
