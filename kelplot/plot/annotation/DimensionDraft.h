// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <optional>

#include "drawing/Drawing.h"
#include "geometry/Box2.h"
#include "plot/annotation/PartList.h"
#include "plot/annotation/TextBox.h"

namespace kelplot {

/// What stands at an end of a dimension line.
struct LineEnd {
    uint32_t block = noBlock;
    double size = 0.0;
    bool isTick = false;         ///< a stroke across the line
    bool isPlainTick = false;    ///< one without a block
    bool lineReachesTip = false; ///< the line goes on through the arrow head
    bool shown = true;

    /// How much of the line the arrow head stands for.
    double cover() const { return lineReachesTip ? 0.0 : size; }
    /// How much of the line it takes up.
    double room() const { return isTick ? 0.0 : size; }
};

/// What finds its place between the extension lines.
struct Fitting {
    bool text;
    bool heads;
};

/// A dimension that is being drawn.
class DimensionDraft {
public:
    /// @param textBody  what the text of the dimension covers about its position, unturned
    DimensionDraft(const Drawing& drawing, const Dimension& dimension, const Box2& textBody);

    const Dimension& dimension() const { return m_dimension; }
    const DimensionLook& look() const { return m_dimension.look; }
    const LineEnd& end(size_t index) const { return m_ends[index]; }
    PartList& parts() { return m_parts; }
    bool hasText() const { return m_dimension.text.has_value(); }

    /// What stays between the extension lines.
    ///
    /// @param room   there is between them
    /// @param heads  room that the arrow heads take up
    /// @param text   room that the text takes up
    Fitting fitting(double room, double heads, double text) const;

    /// The direction of a text beside a line of the direction `along`.
    ///
    /// @param level  as its style says for where the text is
    double textAngle(double along, bool level) const;
    TextBox boxAt(Vec2 middle, double angle) const;
    /// The middle of the text as the drawing states it.
    Vec2 statedMiddle() const;
    /// How far the middle of a text lies above its dimension line where nothing else is said; `angle` is between the
    /// two.
    double textRise(double angle) const;

    void addText(const TextBox& box);
    /// Draws what stands at an end.
    ///
    /// @param direction  radians, of the arrow head
    void addEnd(size_t index, Vec2 tip, double direction);
    /// Draws a stretch of the dimension line but for what the text covers.
    void addLine(Vec2 from, Vec2 to, const TextBox* text);
    /// @param toText  how far it goes on beyond the dimension line at least
    void addExtensionLine(size_t index, Vec2 measured, Vec2 end, Vec2 direction, double toText = 0.0);

private:
    const Dimension& m_dimension;
    Box2 m_textBody;
    std::array<LineEnd, 2> m_ends;
    PartList m_parts;
};

} // namespace kelplot
