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

/// The renderer works out the pattern for the weight in force, so this follows every change of weight.
void PenControl::sendLineType(const Pen& pen, int width) {
    constexpr double finestPeriod = 3.0; // hairline widths; a dash and a gap that can be told apart
    std::vector<double> entries;
    if (pen.lineType) {
        entries = dashEntries(pen.lineType->pattern, pen.patternScale, width, finestPeriod * m_hairlineWidth);
    }
    m_dashed = !entries.empty();
    m_renderer.SetLineType(m_dashed ? HT_PlotStyle::LineTypeCustom : HT_PlotStyle::LineTypeSolid, entries.data(),
                           static_cast<unsigned int>(entries.size()));
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
    const bool patterned = pen.lineType && (width != m_width || pen.patternScale != m_pen.patternScale);
    if (fresh || patterned || pen.lineType != m_pen.lineType) {
        sendLineType(pen, width);
    }
    // Round ends would lengthen each dash by the pen's width.
    const auto ends = m_dashed ? HT_PlotStyle::LineEndFlat : pen.ends;
    if (ends != m_ends) {
        m_renderer.SetLineEndStyle(ends);
    }
    if (pen.joins != m_joins) {
        m_renderer.SetLineJoinStyle(pen.joins);
    }
    m_pen = pen;
    m_width = width;
    m_ends = ends;
    m_joins = pen.joins;
}

} // namespace kelplot
