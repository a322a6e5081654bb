// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// From the coordinates of shapes to those around them: three rows of four.
using ProxyMap = std::array<double, 12>;

struct ProxyText {
    Vec3 position; ///< of the start of its base line
    Vec3 normal;
    Vec3 direction;
    std::string text; ///< UTF-8
    double height = 0.0;
    double widthFactor = 1.0;
    double obliqueAngle = 0.0;
    FontName font;
};

/// What the shapes of a proxy's picture are drawn on: adds them to a drawing, through the maps that apply.
class ProxyCanvas {
public:
    ProxyCanvas(const RecordHeader& look, DrawingBuilder& builder) : m_look(look), m_builder(builder) {}

    /// How the next shapes look.
    RecordHeader& look() { return m_look; }
    bool hasDrawn() const { return m_hasDrawn; }

    void pushMap(const ProxyMap& own);
    void popMap();
    Vec3 mapped(const Vec3& p) const;

    // Of points that are mapped already.
    void addPath(const std::vector<Vec3>& points, bool closed);
    void addArea(const std::vector<Vec3>& corners);
    void addMesh(Mesh&& mesh);
    void addConstructionLine(const Vec3& start, const Vec3& through, bool bothWays);

    // Of points that are not.
    void addArc(const Vec3& centre, const Vec3& normal, const Vec3& start, double sweep);
    void addArcThrough(const Vec3& first, const Vec3& second, const Vec3& third, bool whole);
    void addText(const ProxyText& item);

private:
    Vec3 mappedDirection(const Vec3& v) const;
    void add(Geometry&& geometry, const Vec3& extrusion);

    RecordHeader m_look;
    DrawingBuilder& m_builder;
    std::vector<ProxyMap> m_maps; ///< the last one applies
    bool m_hasDrawn = false;
};

} // namespace kelplot
