// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "device/DirectPainter.h"
#include "keldriver/Renderer.h"
#include "plot/text/Typesetter.h"

namespace kelplot {

/// A call that makes a renderer draw a run in its place.
///
/// A renderer cannot mirror text, but every map of the plane that has an inverse is the product of a turn,
/// a lean and a stretch along the base line, which is negative for a mirrored text: its base line is turned by half a
/// circle, and its letters grow backwards along it.
struct TextCall {
    double scale = 1.0; ///< of the renderer, for this call; makes its large font as high as the text is
    HT_Font font{};
    HT_Double_Point position{};
    double obliqueAngle = 0.0;
    double widthFactor = 1.0;
};

/// The call for a run of a block that `block` maps to device units; nothing where the run has no area.
std::optional<TextCall> textCallFor(const TextRun& run, const PlanMap& block);

/// Draws runs in device units, as outlines through a renderer, or directly as texts of fonts.
class TextPlotter {
public:
    /// All are borrowed for the plotter's life.
    ///
    /// @param direct  what draws texts of fonts; null: texts are outlines
    TextPlotter(const Typesetter& texts, HT_Renderer& renderer, DirectPainter* direct)
        : m_texts(texts), m_renderer(renderer), m_direct(direct) {}

    /// Draws a run of a block that `block` maps to device units. The renderer has the ink already.
    void draw(const TextRun& run, const PlanMap& block, HT_Color ink, uint8_t opacity);

private:
    void drawOutlines(const TextRun& run, const PlanMap& block);

    const Typesetter& m_texts;
    HT_Renderer& m_renderer;
    DirectPainter* m_direct;
};

} // namespace kelplot
