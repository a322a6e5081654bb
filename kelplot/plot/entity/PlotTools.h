// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/entity/EntityStyle.h"
#include "plot/entity/PlotOptions.h"
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
    PlotTools(const Drawing& plotted, const PlotTarget& plotTarget, const PlotStyleOptions& options,
              const Typesetter& layouts, const PlotSurface& surface);

    HT_Color inkOf(const EntityStyle& style, InkUse use) const;
    /// The pen for the lines of an entity.
    Pen linePen(const EntityStyle& style) const;
    void useLinePen(const EntityStyle& style) { pens.setPen(linePen(style)); }
    void useFill(const EntityStyle& style) { pens.setFill(inkOf(style, InkUse::fill), style.opacity); }
    /// How large the mark of a point is, in device units.
    double pointSize() const { return m_pointSize; }

    const Drawing& drawing;
    const PlotTarget& target;
    const Typesetter& typesetter;
    PenControl pens;
    Canvas canvas;
    PicturePlotter pictures;
    TextPlotter texts;

private:
    const PlotStyleOptions& m_options;
    double m_unitSize; ///< device units in a drawing unit
    double m_pointSize;
};

} // namespace kelplot
