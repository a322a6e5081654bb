// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>

#include "reader/DrawingBuilder.h"

namespace kelplot {

/// Millimetres in a drawing's unit, from the two header variables that tell it.
///
/// @param insertUnits  number of the unit, 0 when the drawing names none
/// @param metric       what a drawing without a named unit is taken for: millimetres or inches
double millimetresPerDrawingUnit(int insertUnits, bool metric);

/// The variables of a drawing's header that matter for a plot.
class HeaderVariables {
public:
    explicit HeaderVariables(DrawingBuilder& builder) : m_builder(builder) {}

    void setText(std::string_view key, std::string_view value);
    void setInteger(std::string_view key, int value);
    void setPoint(std::string_view key, const Vec3& value);
    void setReal(std::string_view key, double value);

private:
    void applyUnits();

    DrawingBuilder& m_builder;
    int m_insertUnits = 0;
    bool m_metric = true; ///< a drawing that says nothing is taken for millimetres
};

} // namespace kelplot
