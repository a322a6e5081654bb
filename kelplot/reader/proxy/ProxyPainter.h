// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <vector>

#include "reader/RecordDecoder.h"
#include "reader/proxy/ByteStream.h"

namespace kelplot {

/// Adds the shapes of a proxy's picture to a drawing one by one, and keeps what they look like in between.
class ProxyPainter {
public:
    /// Both are borrowed for the painter's life.
    ProxyPainter(const RecordHeader& whole, DrawingBuilder& builder)
        : m_whole(whole), m_look(whole), m_builder(builder) {}

    /// Takes one item of the picture. False where it cannot be drawn.
    bool take(int32_t kind, ByteStream& data);
    /// Whether anything was drawn.
    bool hasDrawn() const { return m_hasDrawn; }

private:
    using Handler = void (ProxyPainter::*)(ByteStream&);
    struct Row {
        int32_t kind;
        Handler handler; ///< null: it says nothing of the look on paper
    };
    static const Row rows[];

    /// From the coordinates of shapes to those of the drawing.
    using Map = std::array<double, 12>; ///< three rows of four

    void takeCircle(ByteStream& data);
    void takeCircleOfPoints(ByteStream& data);
    void takeArc(ByteStream& data);
    void takeArcOfPoints(ByteStream& data);
    void takePolyline(ByteStream& data);
    void takePolygon(ByteStream& data);
    void takeMesh(ByteStream& data);
    void takeShell(ByteStream& data);
    void takeText(ByteStream& data);
    void takeTextWithFont(ByteStream& data);
    void takeWideText(ByteStream& data);
    void takeWideTextWithFont(ByteStream& data);
    void takeLine(ByteStream& data);
    void takeRay(ByteStream& data);
    void takeColour(ByteStream& data);
    void takeTrueColour(ByteStream& data);
    void takeFill(ByteStream& data);
    void takeLineWeight(ByteStream& data);
    void pushMap(ByteStream& data);
    void popMap(ByteStream& data);

    struct TextItem {
        Vec3 position;
        Vec3 normal;
        Vec3 direction;
        std::string text; ///< UTF-8
        double height = 0.0;
        double widthFactor = 1.0;
        double obliqueAngle = 0.0;
        FontName font;
    };

    static TextItem itemIn(ByteStream& data);
    static void takeSizes(ByteStream& data, TextItem& item);
    Vec3 mapped(const Vec3& p) const;
    Vec3 mappedDirection(const Vec3& v) const;
    std::vector<Vec3> points(ByteStream& data, size_t count) const;
    void add(Geometry&& geometry, const Vec3& extrusion);
    void addPath(const std::vector<Vec3>& points, bool closed);
    void addArc(const Vec3& centre, const Vec3& normal, const Vec3& start, double sweep);
    void addArcThrough(const Vec3& first, const Vec3& second, const Vec3& third, bool whole);
    void addText(const TextItem& item);
    void addConstructionLine(ByteStream& data, bool bothWays);

    const RecordHeader& m_whole;
    RecordHeader m_look;
    DrawingBuilder& m_builder;
    std::vector<Map> m_maps; ///< the last one applies
    bool m_filled = false;
    bool m_hasDrawn = false;
};

} // namespace kelplot
