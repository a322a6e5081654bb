#pragma once

#include <vector>

#include "drawing/Entity.h"
#include "reader/GroupReader.h"

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

    Kind kind_ = Kind::none;
    Vec2 first_;        ///< a line's start, or a centre
    Vec2 second_;       ///< a line's end, or a major axis
    double size_ = 0.0; ///< an arc's radius, or an ellipse's ratio
    double startDegrees_ = 0.0;
    double endDegrees_ = 0.0;
    bool counterClockwise_ = true;
    Spline spline_;
};

} // namespace kelplot
