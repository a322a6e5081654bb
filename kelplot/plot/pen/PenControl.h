// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Drawing.h"
#include "keldriver/Renderer.h"

namespace kelplot {

/// A pen as the plot wants it.
struct Pen {
    HT_Color ink = 0;
    uint8_t opacity = opaque;
    double width = 1.0;                 ///< device units
    const LineType* lineType = nullptr; ///< null: continuous
    double patternScale = 1.0;          ///< device units in a unit of the line type's pattern
    bool fitsLineType = false;          ///< the pattern's gaps are made to suit the length of each line
    HT_PlotStyle::LineEndStyle ends = HT_PlotStyle::LineEndRound; ///< of lines without dashes
    HT_PlotStyle::LineJoinStyle joins = HT_PlotStyle::LineJoinRound;

    /// Gives it flat ends and mitred corners, for areas drawn as wide lines.
    void makeCornered() {
        ends = HT_PlotStyle::LineEndFlat;
        joins = HT_PlotStyle::LineJoinMiter;
    }
};

/// Hands styles to a renderer, and only what differs from the last ones: each setter costs the renderer a
/// new pen.
class PenControl {
public:
    /// @param thinnestDashed  the least width of a line with a line type
    PenControl(HT_Renderer& renderer, double hairlineWidth, double thinnestDashed);

    void setPen(const Pen& pen);
    /// Prepares for filling. A polygon too small to be an area is drawn with the pen, which therefore becomes a
    /// hairline.
    void setFill(HT_Color ink, uint8_t opacity) { setPen({ink, opacity, m_hairlineWidth}); }

    /// Sends everything anew: somebody else has set styles of the renderer.
    void forget() {
        m_width = 0;
        m_ends = -1;
        m_joins = -1;
    }

    /// Tells whether the pen in force draws dashes.
    bool isDashed() const { return m_dashed; }

    /// How far the current pen's ink reaches from the line it draws, in device units.
    double reach() const;

private:
    void sendInk(const Pen& pen);
    void sendLineType(const Pen& pen, int width);

    HT_Renderer& m_renderer;
    double m_hairlineWidth;
    double m_thinnestDashed;
    Pen m_pen;
    int m_width = 0; ///< 0: nothing sent yet
    bool m_dashed = false;
    int m_ends = -1;
    int m_joins = -1;
};

} // namespace kelplot
