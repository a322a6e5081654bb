// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>

#include "reader/DrawingBuilder.h"

namespace kelplot {

/// The variables of a drawing's header that matter for a plot.
class HeaderVariables {
public:
    explicit HeaderVariables(DrawingBuilder& builder) : m_builder(builder) {}

    void setText(std::string_view key, std::string_view value);
    void setInteger(std::string_view key, int value);
    void setReal(std::string_view key, double value);

private:
    void applyUnits();

    DrawingBuilder& m_builder;
    int m_insertUnits = 0;
    bool m_metric = true; ///< a drawing that says nothing is taken for millimetres
};

} // namespace kelplot
