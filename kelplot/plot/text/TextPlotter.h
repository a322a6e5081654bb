// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "keldriver/Renderer.h"
#include "page/PlotTarget.h"
#include "plot/text/TextMode.h"
#include "plot/text/Typesetter.h"

namespace kelplot {

/// A call that makes a renderer draw a run in its place.
///
/// A renderer does not know mirrored text, but every map of the plane that has an inverse is the product of a turn,
/// a lean and a stretch along the base line, which is negative for a mirrored text: its base line is turned by half a
/// circle, and its letters grow backwards along it.
struct TextCall {
    double scale = 1.0; ///< of the renderer, for this call; makes its large font as high as the text is
    HT_Font font{};
    HT_Double_Point position{};
    double obliqueAngle = 0.0;
    double widthFactor = 1.0;
};

/// The call for a run whose block lies so in device units; nothing where the run has no area.
std::optional<TextCall> textCallFor(const TextRun& run, const PlanMap& block);

/// Draws runs in device units, as outlines through a renderer, or as texts of fonts with the painter that it draws
/// with.
class TextPlotter {
public:
    /// All are borrowed for the plotter's life.
    TextPlotter(const Typesetter& texts, const PlotTarget& target, TextMode mode, HT_Renderer& renderer)
        : m_texts(texts), m_painter(mode == TextMode::fonts ? target.painter : nullptr), m_renderer(renderer) {}

    /// Draws a run of a block that lies so. The renderer has got the ink already.
    void draw(const TextRun& run, const PlanMap& block, HT_Color ink, uint8_t opacity);

private:
    void drawOutlines(const TextRun& run, const PlanMap& block);

    const Typesetter& m_texts;
    QPainter* m_painter; ///< null: texts are outlines
    HT_Renderer& m_renderer;
};

} // namespace kelplot
