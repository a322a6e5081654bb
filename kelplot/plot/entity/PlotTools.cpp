// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/PlotTools.h"

#include <algorithm>

namespace kelplot {

namespace {

double pointSizeOn(const PlotTarget& target, double stated, double unitSize) {
    constexpr double usualPercentage = 5.0;
    if (stated > 0.0) {
        return stated * unitSize;
    }
    return target.pageBox.height() / 100.0 * (stated < 0.0 ? -stated : usualPercentage);
}

} // namespace

PlotTools::PlotTools(const Drawing& plotted, const PlotTarget& plotTarget, const PlotStyleOptions& plotStyle,
                     const Typesetter& layouts, PictureStore& pictureStore, const PlotSurface& plotSurface,
                     ClipStack& clipStack, std::optional<double> lineTypeUnits)
    : drawing(plotted), target(plotTarget), options(plotStyle), typesetter(layouts), surface(plotSurface),
      clips(clipStack), pens(surface.renderer, target.hairlineWidth, target.thinnestDashed),
      canvas(surface.renderer, target, pens),
      pictures(pictureStore, clips, options.monochrome, surface.renderer, surface.direct),
      texts(layouts, surface.renderer, options.texts == TextMode::fonts ? surface.direct : nullptr),
      m_lineTypeUnits(lineTypeUnits.value_or(PlanMap(target.toDevice).meanScale())),
      m_pointSize(pointSizeOn(target, drawing.pointSize, PlanMap(target.toDevice).meanScale())) {
    for (const std::string& name : drawing.plotStyles) {
        m_namedRules.push_back(options.pens.ruleFor(QString::fromStdString(name)));
    }
}

const PenRule& PlotTools::ruleFor(const EntityStyle& style) const {
    if (options.pens.goesByNames()) {
        return m_namedRules[style.plotStyle < m_namedRules.size() ? style.plotStyle : 0];
    }
    return options.pens.ruleFor(style.colour);
}

void PlotTools::useLayer(const EntityStyle& style) {
    const bool isTold = m_layer == style.layer;
    if (isTold || surface.direct == nullptr || drawing.layers.size() < 2 || style.layer >= drawing.layers.size()) {
        return;
    }
    m_layer = style.layer;
    surface.direct->tellLayer(QString::fromStdString(drawing.layers[style.layer].name));
}

HT_Color PlotTools::inkOf(const EntityStyle& style, InkUse use) const {
    return inkFor(style.colour, use, ruleFor(style), options.monochrome);
}

Pen PlotTools::linePen(const EntityStyle& style) const {
    const PenRule& rule = ruleFor(style);
    const double millimetres = rule.width.value_or(style.lineWeight / 100.0) * options.lineWeightScale;
    Pen pen;
    pen.ink = inkOf(style, InkUse::line);
    pen.opacity = style.opacity;
    pen.width = std::max(millimetres * target.deviceUnitsPerMillimetre, target.hairlineWidth);
    pen.ends = rule.ends.value_or(pen.ends);
    pen.joins = rule.joins.value_or(pen.joins);
    if (rule.lineType) {
        pen.lineType = rule.lineType->pattern.empty() ? nullptr : &*rule.lineType;
        pen.patternScale = target.deviceUnitsPerMillimetre;
        pen.fitsLineType = rule.fitsLineType;
    } else if (style.lineType < drawing.lineTypes.size() && !drawing.lineTypes[style.lineType].pattern.empty()) {
        pen.lineType = &drawing.lineTypes[style.lineType];
        pen.patternScale = style.lineTypeScale * m_lineTypeUnits;
    }
    return pen;
}

} // namespace kelplot
