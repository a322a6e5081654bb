// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "plot/pen/DashPattern.h"

namespace kelplot {

/// A stretch of a line, by the distances of its ends from the start of the line.
struct LineSpan {
    double from = 0.0;
    double to = 0.0;
};

/// How dashes begin on a line.
enum class DashStart {
    aligned, ///< so that the line begins and ends with a dash
    plain    ///< with the pattern, wherever in it the line ends
};

/// How the dashes of a pattern lie along a line.
///
/// An aligned line holds as many whole periods as it is long, and begins and ends with the same part of the first dash:
/// with half of it and half of what is left over. A pattern that begins with a dot keeps its dots and stretches its
/// gaps instead. A line that is shorter than a period is continuous.
class DashLayout {
public:
    /// @param pattern  not continuous
    DashLayout(const DashPattern& pattern, double length, DashStart start);

    bool isContinuous() const { return m_continuous; }
    /// How many dashes begin on a stretch of the line, roughly; infinite where the line is too long to count them. Only
    /// a finite number may be added.
    double dashCount(const LineSpan& part) const;
    /// Appends what of the dashes lies on a part of the line, in order, and moved by `offset`. A dash that begins where
    /// the last one of `dashes` ends becomes one with it.
    void addDashes(const LineSpan& part, double offset, std::vector<LineSpan>& dashes) const;
    /// Appends the places on a part of the line where the pattern is `at` units from its own beginning, moved by
    /// `offset`.
    void addPlaces(double at, const LineSpan& part, double offset, std::vector<double>& places) const;

private:
    template <typename Visit>
    void forEachPeriod(const LineSpan& part, Visit visit) const;

    std::vector<DashStroke> m_strokes;
    double m_length;
    double m_statedPeriod; ///< before gaps are stretched
    double m_lead;
    double m_period;
    double m_begin = 0.0;   ///< where the first period begins; may lie before the line
    double m_periods = 0.0; ///< whole ones on the line
    bool m_aligned;
    bool m_continuous = false;
};

/// The entries that make a renderer draw these dashes with a pen of whole width `penWidth` and flat ends, on a line
/// that goes from the start of the first to the end of the last.
std::vector<double> dashEntries(const std::vector<LineSpan>& dashes, int penWidth);

} // namespace kelplot
