// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/entity/EntityStyle.h"
#include "plot/entity/PlotStyleOptions.h"
#include "plot/pen/Canvas.h"
#include "plot/pen/Ink.h"
#include "plot/pen/PenControl.h"
#include "plot/picture/PicturePlotter.h"
#include "plot/text/TextPlotter.h"

namespace kelplot {

/// What a plot is drawn with.
struct PlotSurface {
    HT_Renderer& renderer;
    DirectPainter* direct = nullptr; ///< null: texts are outlines, and pictures that are turned are left out
};

/// What the entities of a drawing are drawn with on one plot, in device coordinates.
class PlotTools {
public:
    /// All are borrowed for the tools' life, including what the surface refers to.
    ///
    /// @param lineTypeUnits  device units in a unit of line types; none: those in a drawing unit
    PlotTools(const Drawing& plotted, const PlotTarget& plotTarget, const PlotStyleOptions& plotStyle,
              const Typesetter& layouts, PictureStore& pictureStore, const PlotSurface& plotSurface,
              ClipStack& clipStack, std::optional<double> lineTypeUnits = std::nullopt);

    /// How the pens plot what has a style.
    const PenRule& ruleFor(const EntityStyle& style) const;
    HT_Color inkOf(const EntityStyle& style, InkUse use) const;
    /// The pen for the lines of an entity.
    Pen linePen(const EntityStyle& style) const;
    void useLinePen(const EntityStyle& style) { pens.setPen(linePen(style)); }
    void useFill(const EntityStyle& style) { pens.setFill(inkOf(style, InkUse::fill), style.opacity); }
    /// Tells the device to which layer an entity belongs, where the drawing has several.
    void useLayer(const EntityStyle& style);
    /// Has the next layer told anew, after other tools have told theirs.
    void forgetLayer() { m_layer.reset(); }
    double lineTypeUnits() const { return m_lineTypeUnits; }
    /// How large the mark of a point is, in device units.
    double pointSize() const { return m_pointSize; }

    const Drawing& drawing;
    const PlotTarget& target;
    const PlotStyleOptions& options;
    const Typesetter& typesetter;
    const PlotSurface surface;
    ClipStack& clips;
    PenControl pens;
    Canvas canvas;
    PicturePlotter pictures;
    TextPlotter texts;
    double patternDashesLeft = 2e6; ///< that may still be drawn, of all hatches together
    size_t tintedHatches = 0;       ///< of which the pattern would take too many lines

private:
    std::optional<uint32_t> m_layer; ///< that the device was told last
    double m_lineTypeUnits;
    double m_pointSize;
    std::vector<PenRule> m_namedRules; ///< of the drawing's plot styles, in their order
};

} // namespace kelplot
