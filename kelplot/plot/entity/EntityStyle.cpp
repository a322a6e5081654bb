// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/EntityStyle.h"

#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

constexpr uint32_t floatingLayer = 0; // what a block holds on layer "0" takes the layer of the reference
constexpr LineWeight ordinaryWeight = 25;

double orOne(double scale) {
    return scale > 0.0 && std::isfinite(scale) ? scale : 1.0;
}

} // namespace

EntityStyle withColour(const EntityStyle& whole, const std::optional<Colour>& colour, const Drawing& drawing) {
    EntityStyle style = whole;
    if (colour && colour->kind != Colour::Kind::byBlock) {
        const bool byLayer = colour->kind == Colour::Kind::byLayer;
        style.colour = byLayer ? drawing.layers[style.layer].colour : *colour;
    }
    return style;
}

StyleResolver::StyleResolver(const Drawing& drawing, const LayerView& view)
    : m_drawing(drawing), m_layers(drawing.layers) {
    apply(view);
    for (const Layer& layer : m_layers) {
        m_plotted.push_back(layer.on && !layer.frozen && layer.plotted);
        m_frozen.push_back(layer.frozen);
    }
    m_outside.lineWeight = weightOf(lineWeightDefault);
}

void StyleResolver::apply(const LayerView& view) {
    for (const uint32_t layer : view.frozen) {
        m_layers[layer].frozen = true;
    }
    for (const LayerOverride& change : view.overrides) {
        Layer& layer = m_layers[change.layer];
        layer.colour = change.colour.value_or(layer.colour);
        layer.lineType = change.lineType.value_or(layer.lineType);
        layer.lineWeight = change.lineWeight.value_or(layer.lineWeight);
        layer.opacity = change.opacity.value_or(layer.opacity);
    }
}

LineWeight StyleResolver::weightOf(LineWeight stated) const {
    if (stated >= 0) {
        return stated;
    }
    return m_drawing.defaultLineWeight >= 0 ? m_drawing.defaultLineWeight : ordinaryWeight;
}

EntityStyle StyleResolver::resolve(const Attributes& attributes, const EntityStyle& reference) const {
    EntityStyle style;
    const uint32_t stated = attributes.layer < m_drawing.layers.size() ? attributes.layer : floatingLayer;
    style.layer = stated == floatingLayer ? reference.layer : stated;
    const Layer& layer = m_layers[style.layer];

    const Colour colour = attributes.colour.kind == Colour::Kind::byLayer ? layer.colour : attributes.colour;
    const bool concrete = colour.kind == Colour::Kind::index || colour.kind == Colour::Kind::trueColour;
    style.colour = concrete ? colour : reference.colour;

    const uint32_t lineType = attributes.lineType == lineTypeByLayer ? layer.lineType : attributes.lineType;
    style.lineType = lineType == lineTypeByBlock ? reference.lineType : lineType;
    style.lineType = style.lineType < m_drawing.lineTypes.size() ? style.lineType : 0;

    const LineWeight weight = attributes.lineWeight == lineWeightByLayer ? layer.lineWeight : attributes.lineWeight;
    style.lineWeight = weight == lineWeightByBlock ? reference.lineWeight : weightOf(weight);

    const Opacity opacity = attributes.opacity == opacityByLayer ? layer.opacity : attributes.opacity;
    style.opacity = opacity >= 0 ? static_cast<uint8_t>(opacity) : reference.opacity;

    const PlotStyleIndex plotStyle = attributes.plotStyle == plotStyleByLayer ? layer.plotStyle : attributes.plotStyle;
    style.plotStyle = plotStyle == plotStyleByBlock ? reference.plotStyle : plotStyle;

    style.lineTypeScale = orOne(attributes.lineTypeScale) * orOne(m_drawing.lineTypeScale);
    return style;
}

} // namespace kelplot
