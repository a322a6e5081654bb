// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/Progress.h"
#include "drawing/Drawing.h"
#include "geometry/Box2.h"
#include "plot/EntityWalk.h"
#include "plot/entity/PlotTools.h"
#include "plot/picture/PictureStore.h"
#include "plot/text/Typesetter.h"

namespace kelplot {

/// Entities that a plot leaves out, or of which it leaves a part out, by what that is, for a message.
using UnplottedKinds = std::map<std::string, std::set<const Entity*>>;

/// What the extents of a plot leave out, and the plot too.
struct ExtentsReport : WalkReport {
    UnplottedKinds unplotted;
    std::set<uint32_t> undefinedLineTypes; ///< of lines; the drawing only refers to them
};

/// What a plot leaves out besides.
struct PlotReport : WalkReport {
    PictureFaults missingPictures;
    std::set<const Entity*> tintedHatches; ///< that would take too many lines and are filled with a tint
    size_t viewports = 0;                  ///< through which the model was drawn
    bool lostLineTypeTexts = false;
    bool tooManyViewports = false;

    /// Adds what a viewport leaves out, or another part of the page.
    void add(const PlotReport& other);
    using WalkReport::add;
};

/// Measures a drawing and plots it. The plot reuses the text layouts of the measurement that are still cached.
class DrawingPlot {
public:
    /// @param drawing  borrowed for the plot's life
    DrawingPlot(const Drawing& drawing, PlotStyleOptions style)
        : m_drawing(drawing), m_style(std::move(style)), m_texts(drawing, m_style.fonts) {}

    /// The pens of the plots from here on.
    void usePens(const PenTable& pens) { m_style.pens = pens; }

    /// The extents of what `draw` would draw, in drawing units; empty when that is nothing. `report`, if given,
    /// receives what is left out of them.
    Box2 extents(const std::vector<Entity>& entities, ExtentsReport* report = nullptr) const;

    /// Draws `entities` of the drawing through the surface's renderer, which has started to render and is limited to
    /// the visible part of the page from then on. Returns what is left out.
    PlotReport draw(const std::vector<Entity>& entities, const PlotTarget& target, const PlotSurface& surface,
                    const Progress& progress) const;

    /// What became of the fonts and characters of the texts that were measured and drawn.
    const FontReport& fonts() const { return m_texts.fonts(); }

private:
    const Drawing& m_drawing;
    PlotStyleOptions m_style;
    Typesetter m_texts;
};

} // namespace kelplot
