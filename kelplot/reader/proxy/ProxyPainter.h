// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "reader/RecordDecoder.h"
#include "reader/proxy/ByteStream.h"
#include "reader/proxy/ProxyCanvas.h"

namespace kelplot {

/// Reads the items of a proxy's picture one by one, and draws the shapes among them.
class ProxyPainter {
public:
    /// Both are borrowed for the painter's life.
    ProxyPainter(const RecordHeader& whole, DrawingBuilder& builder)
        : m_whole(whole), m_builder(builder), m_canvas(whole, builder) {}

    /// Takes one item of the picture. False where it cannot be drawn.
    bool take(int32_t kind, ByteStream& data);
    /// Whether anything was drawn.
    bool hasDrawn() const { return m_canvas.hasDrawn(); }

private:
    using Handler = void (ProxyPainter::*)(ByteStream&);
    struct Row {
        int32_t kind;
        Handler handler; ///< null: it says nothing of the look on paper
    };
    static const Row rows[];

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

    static ProxyText itemIn(ByteStream& data);
    static void takeSizes(ByteStream& data, ProxyText& item);
    /// Mapped.
    std::vector<Vec3> points(ByteStream& data, size_t count) const;
    void addConstructionLine(ByteStream& data, bool bothWays);

    const RecordHeader& m_whole;
    DrawingBuilder& m_builder;
    ProxyCanvas m_canvas;
    bool m_filled = false;
};

} // namespace kelplot
