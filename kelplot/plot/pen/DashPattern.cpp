// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/DashPattern.h"

#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

/// Makes dashes and gaps in turn of a pattern: neighbours of one kind become one, and what comes before the first dash
/// goes to the end, since a renderer's pattern starts with a dash.
DashPattern strokesOf(const std::vector<double>& pattern, double scale) {
    DashPattern result;
    std::vector<DashStroke>& strokes = result.strokes;
    for (const double entry : pattern) {
        const double length = entry * scale;
        if (!std::isfinite(length)) {
            return {};
        }
        result.period += std::abs(length);
        if (entry < 0.0) {
            (strokes.empty() ? result.lead : strokes.back().gap) -= length;
        } else if (strokes.empty() || strokes.back().gap > 0.0) {
            strokes.push_back({length, 0.0});
        } else {
            strokes.back().dash += length;
        }
    }
    if (strokes.empty()) {
        return {};
    }
    strokes.back().gap += result.lead;
    if (strokes.size() > 1 && strokes.back().gap <= 0.0) {
        result.lead -= strokes.back().dash;
        strokes.front().dash += strokes.back().dash;
        strokes.pop_back();
    }
    return result;
}

/// Makes short dashes as long as the pen is wide; the gaps on both sides make room for them.
void makeDots(std::vector<DashStroke>& strokes, double penWidth) {
    for (size_t i = 0; i < strokes.size(); ++i) {
        const double grown = std::max(0.0, penWidth - strokes[i].dash);
        strokes[i].dash += grown;
        strokes[i].gap -= grown / 2.0;
        strokes[(i + strokes.size() - 1) % strokes.size()].gap -= grown / 2.0;
    }
}

/// Rounds lengths so that their sum stays true: on a long line the error of each would add up.
class LengthRounding {
public:
    double next(double length) {
        m_exact += length;
        const double rounded = std::max(1.0, std::round(m_exact - m_given));
        m_given += rounded;
        return rounded;
    }

private:
    double m_exact = 0.0;
    double m_given = 0.0;
};

} // namespace

DashPattern dashPatternOf(const std::vector<double>& pattern, const DashRules& rules) {
    DashPattern result = strokesOf(pattern, rules.scale);
    const bool hasGaps = !result.strokes.empty() && result.strokes.front().gap > 0.0;
    if (!hasGaps || !(result.period >= rules.finestPeriod) || !std::isfinite(result.period)) {
        return {};
    }
    constexpr double dotPart = 0.05; // of the period; some programs write a short dash for a dot
    const double first = result.strokes.front().dash;
    result.spreads = rules.fits || first < std::max(rules.penWidth, dotPart * result.period);
    makeDots(result.strokes, rules.penWidth);
    return result;
}

std::vector<double> dashEntries(const std::vector<DashStroke>& strokes, int penWidth) {
    // The renderer allows for ends that lengthen each dash by the pen's width and takes that off the gaps. With flat
    // ends nothing is lengthened, so the width is added here.
    std::vector<double> entries;
    LengthRounding rounding;
    for (const DashStroke& stroke : strokes) {
        entries.push_back(rounding.next(stroke.dash));
        entries.push_back(rounding.next(stroke.gap) + penWidth);
    }
    return entries;
}

} // namespace kelplot
