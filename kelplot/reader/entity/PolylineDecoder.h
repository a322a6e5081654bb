// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <vector>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Bits of code 70 that flat and old polylines share.
constexpr int polylineClosed = 1;
constexpr int polylineContinuousPattern = 128;

/// Polylines, meshes and polyface meshes that are spread over a head, vertices and an end.
class PolylineDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

    /// Adds the polyline that has begun when a record comes that does not belong to it: its end may be missing.
    void beforeRecord(std::string_view type, DrawingBuilder& builder) override;

private:
    enum class Part { head, vertex, end };

    struct Head {
        RecordHeader header;
        int flags = 0;
        double startWidth = 0.0;
        double endWidth = 0.0;
        double elevation = 0.0;
        std::array<int, 4> counts{}; ///< of a mesh: rows, columns, and the same of its smooth surface
    };

    struct Vertex {
        PolylineVertex point;
        int flags = 0;
    };

    /// A face of a polyface mesh: numbers of vertices from 1, negative before an edge that is not seen.
    struct Face {
        RecordHeader header;
        std::array<int, 4> corners{};
    };

    void finish(DrawingBuilder& builder);
    void takeOfHead(const Group& group);
    void takeOfVertex(const Group& group);
    void endVertex(const RecordHeader& header);
    void addPolyline(DrawingBuilder& builder) const;
    void addMesh(DrawingBuilder& builder) const;
    void addFaces(DrawingBuilder& builder) const;

    Part m_part = Part::end;
    bool m_open = false;
    Head m_head;
    Vertex m_vertex;
    std::array<int, 4> m_corners{};
    std::vector<Vertex> m_vertices;
    std::vector<Face> m_faces;
};

} // namespace kelplot
