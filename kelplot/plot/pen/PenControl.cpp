// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/PenControl.h"

#include <algorithm>
#include <cmath>

#include "plot/pen/DashPattern.h"

namespace kelplot {

namespace {

int wholeWidth(double width) {
    constexpr double widest = 1e6;
    return static_cast<int>(std::lround(std::clamp(width, 1.0, widest)));
}

} // namespace

PenControl::PenControl(HT_Renderer& renderer, double hairlineWidth, double thinnestDashed)
    : m_renderer(renderer), m_hairlineWidth(hairlineWidth), m_thinnestDashed(thinnestDashed) {
    m_renderer.setScale(1.0);
    m_renderer.SetFillStyle(HT_PlotStyle::FillSolid);
}

void PenControl::sendInk(const Pen& pen) {
    m_renderer.SetColor(pen.ink); // opaque until told otherwise
    if (pen.opacity != opaque) {
        m_renderer.SetAlpha(pen.opacity);
    }
}

void PenControl::sendEnds(HT_PlotStyle::LineEndStyle ends) {
    if (ends != m_ends) {
        m_renderer.SetLineEndStyle(ends);
        m_ends = ends;
    }
}

void PenControl::useSolid(bool flatEnds) {
    if (!m_entries || !m_entries->empty()) {
        m_renderer.SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
        m_entries = std::vector<double>();
    }
    sendEnds(flatEnds ? HT_PlotStyle::LineEndFlat : m_pen.ends);
}

/// Round ends would lengthen each dash by the pen's width.
void PenControl::useDashes(const std::vector<double>& entries) {
    if (m_entries != entries) {
        m_entries = entries;
        m_renderer.SetLineType(HT_PlotStyle::LineTypeCustom, m_entries->data(),
                               static_cast<unsigned int>(m_entries->size()));
    }
    sendEnds(HT_PlotStyle::LineEndFlat);
}

double PenControl::reach() const {
    constexpr double mitreLength = 6.0; // pen widths; no device draws longer ones
    const bool mitred = m_pen.joins == HT_PlotStyle::LineJoinMiter;
    const double endReach = m_pen.ends == HT_PlotStyle::LineEndSquare ? 0.7072 : 0.5; // pen widths
    return m_width * (mitred ? mitreLength : endReach);
}

void PenControl::setPen(const Pen& pen) {
    const bool fresh = m_width == 0;
    const int width = wholeWidth(pen.lineType ? std::max(pen.width, m_thinnestDashed) : pen.width);
    if (fresh || pen.ink != m_pen.ink || pen.opacity != m_pen.opacity) {
        sendInk(pen);
    }
    if (width != m_width) {
        m_renderer.SetLineWeight(width);
    }
    const bool patterned = width != m_width || pen.lineType != m_pen.lineType ||
                           pen.patternScale != m_pen.patternScale || pen.fitsLineType != m_pen.fitsLineType;
    if (patterned && m_entries && !m_entries->empty()) {
        m_entries.reset(); // the renderer works out its dashes for the weight in force
    }
    if (fresh || patterned) {
        constexpr double finestPeriod = 3.0; // hairline widths; a dash and a gap that can be told apart
        const DashRules rules{pen.patternScale, static_cast<double>(width), finestPeriod * m_hairlineWidth,
                              pen.fitsLineType};
        m_dashes = pen.lineType ? dashPatternOf(pen.lineType->pattern, rules) : DashPattern();
    }
    if (pen.joins != m_joins) {
        m_renderer.SetLineJoinStyle(pen.joins);
    }
    m_pen = pen;
    m_width = width;
    m_joins = pen.joins;
    if (!isDashed()) {
        useSolid();
    }
}

} // namespace kelplot
