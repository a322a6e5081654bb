// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/Entity.h"
#include "reader/RecordDecoder.h"
#include "reader/entity/HatchGradientDecoder.h"
#include "reader/groups/GroupSource.h"

namespace kelplot {

/// Builds the edges of one boundary of a hatch from its groups.
class HatchEdgeDecoder {
public:
    /// Takes a group of the boundary; an edge that it completes goes to `edges`.
    void take(const Group& group, std::vector<HatchEdge>& edges);

    /// Adds the edge begun last.
    void finish(std::vector<HatchEdge>& edges);

private:
    enum class Kind { none = 0, line = 1, arc = 2, ellipse = 3, spline = 4 };

    void begin(int kind);
    void takeReal(int code, double value);
    void takeOfSpline(const Group& group);

    Kind m_kind = Kind::none;
    Vec2 m_first;        ///< a line's start, or a centre
    Vec2 m_second;       ///< a line's end, or a major axis
    double m_size = 0.0; ///< an arc's radius, or an ellipse's ratio
    double m_startDegrees = 0.0;
    double m_endDegrees = 0.0;
    bool m_counterClockwise = true;
    Spline m_spline;
};

/// Hatches, and polygons that are stored like them.
class HatchDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    /// The stretch of the record that is being read; codes mean other things in each.
    enum class Stretch { head, boundaries, pattern, gradient };

    void takeOfBoundaries(const Group& group);
    void takeOfPolyline(const Group& group);
    void takeOfPattern(const Group& group);
    bool takeOfPolygon(const Group& group);
    void takeOfPatternLine(const Group& group);
    void finishPattern(DrawingBuilder& builder);
    void beginLoop(int flags);
    void endLoop();

    Hatch m_hatch;
    HatchLoop m_loop;
    HatchEdgeDecoder m_edge;
    Stretch m_stretch = Stretch::head;
    bool m_isPolygon = false;
    Vec2 m_patternOffset;
    int m_solidCode = 0;
    bool m_isUserDefined = false;
    bool m_isDoubled = false;  ///< a pattern of the user's own is crossed by itself
    std::string m_patternName; ///< as the file writes it
    HatchGradientDecoder m_gradient;
    bool m_inLoop = false;
    bool m_loopIsPolyline = false;
};

} // namespace kelplot
