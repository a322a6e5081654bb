// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "drawing/Drawing.h"
#include "keldriver/Renderer.h"
#include "plot/pen/DashPattern.h"

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
        m_entries.reset();
        m_ends = -1;
        m_joins = -1;
    }

    /// The dashes of the pen in force. Who draws with a pen that has some says for each line which of these it is to
    /// have, with the next two.
    const DashPattern& dashes() const { return m_dashes; }
    bool isDashed() const { return !m_dashes.isContinuous(); }
    /// From here on lines are drawn without dashes, by the pen's own ends or by flat ones.
    void useSolid(bool flatEnds = false);
    /// From here on lines are drawn with dashes, as the entries for a renderer say; they have flat ends.
    void useDashes(const std::vector<double>& entries);
    int width() const { return m_width; }
    const Pen& pen() const { return m_pen; }

    /// How far the current pen's ink reaches from the line it draws, in device units.
    double reach() const;

private:
    void sendInk(const Pen& pen);
    void sendEnds(HT_PlotStyle::LineEndStyle ends);

    HT_Renderer& m_renderer;
    double m_hairlineWidth;
    double m_thinnestDashed;
    Pen m_pen;
    int m_width = 0; ///< 0: nothing sent yet
    DashPattern m_dashes;
    std::optional<std::vector<double>> m_entries; ///< that the renderer has; none at all: not known
    int m_ends = -1;
    int m_joins = -1;
};

} // namespace kelplot
