// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/DashPattern.h"

#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

/// A dash and the gap after it, in device units. A dot is a dash of length 0.
struct Stroke {
    double dash = 0.0;
    double gap = 0.0;
};

/// The pattern as dashes and gaps in turn: neighbours of one kind become one, and what comes before the
/// first dash goes to the end, since a renderer's pattern starts with a dash.
std::vector<Stroke> strokesOf(const std::vector<double>& pattern, double scale) {
    std::vector<Stroke> strokes;
    double leadingGap = 0.0;
    for (const double entry : pattern) {
        if (!std::isfinite(entry)) {
            return {};
        }
        if (entry < 0.0) {
            (strokes.empty() ? leadingGap : strokes.back().gap) -= entry * scale;
        } else if (strokes.empty() || strokes.back().gap > 0.0) {
            strokes.push_back({entry * scale, 0.0});
        } else {
            strokes.back().dash += entry * scale;
        }
    }
    if (strokes.empty()) {
        return {};
    }
    strokes.back().gap += leadingGap;
    if (strokes.size() > 1 && strokes.back().gap <= 0.0) {
        strokes.front().dash += strokes.back().dash;
        strokes.pop_back();
    }
    return strokes;
}

/// A dot is drawn as long as the pen is wide; the gaps on both sides make room for it.
std::vector<Stroke> withDots(const std::vector<Stroke>& strokes, double dotLength) {
    std::vector<Stroke> result = strokes;
    for (size_t i = 0; i < strokes.size(); ++i) {
        if (strokes[i].dash <= 0.0) {
            const size_t before = (i + strokes.size() - 1) % strokes.size();
            result[before].gap -= dotLength / 2.0;
            result[i].gap -= dotLength / 2.0;
        }
    }
    return result;
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

std::vector<double> dashEntries(const std::vector<double>& pattern, double scale, int penWidth, double finestPeriod) {
    const std::vector<Stroke> strokes = strokesOf(pattern, scale);
    double period = 0.0;
    for (const Stroke& stroke : strokes) {
        period += stroke.dash + stroke.gap;
    }
    const bool hasGaps = !strokes.empty() && strokes.front().gap > 0.0;
    if (!hasGaps || !(period >= finestPeriod) || !std::isfinite(period)) {
        return {};
    }
    // The renderer allows for ends that lengthen each dash by the pen's width and takes that off the gaps.
    // With flat ends nothing is lengthened, so the width is added here. It draws an entry of 0 as long as
    // the pen is wide.
    std::vector<double> entries;
    LengthRounding rounding;
    const std::vector<Stroke> drawn = withDots(strokes, penWidth);
    for (size_t i = 0; i < drawn.size(); ++i) {
        const bool isDot = strokes[i].dash <= 0.0;
        const double dash = rounding.next(isDot ? penWidth : drawn[i].dash);
        entries.push_back(isDot ? 0.0 : dash);
        entries.push_back(rounding.next(drawn[i].gap) + penWidth);
    }
    return entries;
}

} // namespace kelplot
