// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/DashLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace kelplot {

namespace {

/// Adds a stretch to those before it.
void add(const LineSpan& span, const LineSpan& part, double offset, std::vector<LineSpan>& spans) {
    constexpr double touching = 1e-6; // device units
    const double from = std::max(span.from, part.from) + offset;
    const double to = std::min(span.to, part.to) + offset;
    if (!spans.empty() && from <= spans.back().to + touching) {
        spans.back().to = std::max(spans.back().to, to);
    } else if (from < to) {
        spans.push_back({from, to});
    }
}

} // namespace

DashLayout::DashLayout(const DashPattern& pattern, double length, DashStart start)
    : m_strokes(pattern.strokes), m_length(length), m_statedPeriod(pattern.period), m_lead(pattern.lead),
      m_period(pattern.period), m_aligned(start == DashStart::aligned) {
    constexpr double nearlyWhole = 1e-9;
    const double first = m_strokes.front().dash;
    m_periods = std::floor(length / m_period + nearlyWhole);
    m_continuous = !(m_periods >= 1.0);
    if (m_continuous || !m_aligned) {
        return;
    }
    if (!pattern.spreads) {
        m_begin = (length - m_periods * m_period - first) / 2.0;
        return;
    }
    double gaps = 0.0;
    for (const DashStroke& stroke : m_strokes) {
        gaps += stroke.gap;
    }
    m_periods = std::max(1.0, std::round((length - first) / m_period));
    m_period = (length - first) / m_periods;
    const double stretch = (m_period - (pattern.period - gaps)) / gaps;
    m_continuous = !(gaps > 0.0 && stretch > 0.0);
    for (DashStroke& stroke : m_strokes) {
        stroke.gap *= stretch;
    }
}

double DashLayout::dashCount(const LineSpan& part) const {
    constexpr double mostCounted = 1e15; // periods; beyond, the next number would be the same
    if (m_continuous) {
        return 1.0;
    }
    const bool isCounted = (std::max(part.to, m_length) - m_begin) / m_period < mostCounted;
    return isCounted ? ((part.to - part.from) / m_period + 2.0) * static_cast<double>(m_strokes.size()) : HUGE_VAL;
}

/// Calls `visit` with the number and the place of each period that may lie on a part of the line.
template <typename Visit>
void DashLayout::forEachPeriod(const LineSpan& part, Visit visit) const {
    const double first = std::max(0.0, std::floor((part.from - m_begin) / m_period));
    const double last = std::ceil((part.to - m_begin) / m_period);
    const auto end = static_cast<int64_t>(m_aligned ? std::min(last, m_periods) : last);
    for (auto number = static_cast<int64_t>(first); number <= end; ++number) {
        const auto count = static_cast<double>(number);
        visit(count, m_begin + count * m_period);
    }
}

void DashLayout::addDashes(const LineSpan& part, double offset, std::vector<LineSpan>& dashes) const {
    if (m_continuous) {
        add({0.0, m_length}, part, offset, dashes);
        return;
    }
    forEachPeriod(part, [&](double number, double begin) {
        const bool isLast = m_aligned && number == m_periods;
        double at = begin;
        for (const DashStroke& stroke : m_strokes) {
            const bool opensLine = m_aligned && number == 0.0 && at == begin;
            const double from = opensLine ? 0.0 : std::max(at, 0.0);
            add({from, isLast ? m_length : std::min(at + stroke.dash, m_length)}, part, offset, dashes);
            if (isLast) { // it is only a dash
                return;
            }
            at += stroke.dash + stroke.gap;
        }
    });
}

void DashLayout::addPlaces(double at, const LineSpan& part, double offset, std::vector<double>& places) const {
    if (m_continuous) {
        return;
    }
    const double fromDash = at - m_lead; // less than a period before or after it
    const double inPeriod = (fromDash < 0.0 ? fromDash + m_statedPeriod : fromDash) * (m_period / m_statedPeriod);
    forEachPeriod(part, [&](double number, double begin) {
        const double place = begin + inPeriod;
        const bool isOnLine = number < m_periods; // a period that is cut off has no room for it
        if (isOnLine && place >= part.from && place <= part.to) {
            places.push_back(place + offset);
        }
    });
}

std::vector<double> dashEntries(const std::vector<LineSpan>& dashes, int penWidth) {
    std::vector<DashStroke> strokes;
    for (size_t i = 0; i < dashes.size(); ++i) {
        constexpr double beyondEnd = 100.0; // device units; more than rounding could add to the line
        const double next = i + 1 < dashes.size() ? dashes[i + 1].from : dashes[i].to + beyondEnd;
        strokes.push_back({dashes[i].to - dashes[i].from, next - dashes[i].to});
    }
    return dashEntries(strokes, penWidth);
}

} // namespace kelplot
