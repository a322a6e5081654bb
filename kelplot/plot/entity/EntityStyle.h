// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "drawing/Drawing.h"

namespace kelplot {

/// What an entity looks like once layers and blocks have had their say.
struct EntityStyle {
    uint32_t layer = 0;
    Colour colour{Colour::Kind::index, 7}; ///< a colour number or a true colour
    uint32_t lineType = 0;                 ///< index into Drawing::lineTypes
    LineWeight lineWeight = 0;             ///< hundredths of a millimetre, not negative
    uint8_t opacity = opaque;
    PlotStyleIndex plotStyle = 0; ///< index into Drawing::plotStyles
    double lineTypeScale = 1.0;   ///< of the entity and the drawing together
};

/// The style of a part of an entity that may have a colour of its own.
EntityStyle withColour(const EntityStyle& whole, const std::optional<Colour>& colour, const Drawing& drawing);

/// The layers as one view shows them, where that is not as the drawing says.
struct LayerView {
    std::vector<uint32_t> frozen = {};
    std::vector<LayerOverride> overrides = {};
};

/// Works out the styles of the entities of a drawing, which outlives this.
class StyleResolver {
public:
    explicit StyleResolver(const Drawing& drawing, const LayerView& view = {});

    /// The style of an entity that stands in the drawing itself.
    EntityStyle resolve(const Attributes& attributes) const { return resolve(attributes, m_outside); }
    /// The style of an entity in a block whose reference has the style `reference`.
    EntityStyle resolve(const Attributes& attributes, const EntityStyle& reference) const;

    /// Tells whether entities on a layer get on paper.
    bool isPlotted(uint32_t layer) const { return m_plotted[layer] != 0; }
    /// Tells whether a layer hides even what a block on it holds on other layers.
    bool isFrozen(uint32_t layer) const { return m_frozen[layer] != 0; }

private:
    void apply(const LayerView& view);
    LineWeight weightOf(LineWeight stated) const;

    const Drawing& m_drawing;
    EntityStyle m_outside; ///< what "by block" means where there is no block
    std::vector<Layer> m_layers;
    std::vector<char> m_plotted;
    std::vector<char> m_frozen;
};

} // namespace kelplot
