// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/StyleValues.h"

#include <algorithm>
#include <iterator>

#include "reader/AttachedData.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

/// Many more values than a style has.
constexpr int mostChanges = 256;

struct Default {
    StyleCode code;
    double value;
};
/// All others are 0.
constexpr Default defaults[] = {
    {StyleCode::scale, 1.0},
    {StyleCode::arrowSize, 0.18},
    {StyleCode::extensionGap, 0.0625},
    {StyleCode::extensionBeyond, 0.18},
    {StyleCode::extensionLength, 1.0},
    {StyleCode::levelInside, 1.0},
    {StyleCode::levelOutside, 1.0},
    {StyleCode::textHeight, 0.18},
    {StyleCode::centreMark, 0.09},
    {StyleCode::alternateFactor, 25.4},
    {StyleCode::lengthFactor, 1.0},
    {StyleCode::toleranceHeight, 1.0},
    {StyleCode::gap, 0.09},
    {StyleCode::alternateDigits, 2.0},
    {StyleCode::digits, 4.0},
    {StyleCode::toleranceDigits, 4.0},
    {StyleCode::alternateUnit, 2.0},
    {StyleCode::alternateToleranceDigits, 2.0},
    {StyleCode::unit, 2.0},
    {StyleCode::decimalSign, '.'},
    {StyleCode::toleranceLevel, 1.0},
    {StyleCode::fit, 3.0},
    {StyleCode::lineWeight, -2.0},
    {StyleCode::extensionWeight, -2.0},
};

double defaultOf(StyleCode code) {
    const auto* const found =
        std::find_if(std::begin(defaults), std::end(defaults), [code](const Default& row) { return row.code == code; });
    return found == std::end(defaults) ? 0.0 : found->value;
}

} // namespace

double StyleValues::real(StyleCode code) const {
    const auto found = m_values.constFind(static_cast<int>(code));
    return found == m_values.constEnd() ? defaultOf(code) : toReal(*found);
}

int StyleValues::integer(StyleCode code) const {
    const auto found = m_values.constFind(static_cast<int>(code));
    return found == m_values.constEnd() ? static_cast<int>(defaultOf(code)) : toInteger(*found);
}

uint64_t StyleValues::handle(StyleCode code) const {
    return toHandle(text(code));
}

double StyleValues::scale() const {
    const double stated = real(StyleCode::scale);
    return stated > 0.0 ? stated : 1.0;
}

double StyleValues::length(StyleCode code) const {
    return std::max(0.0, real(code)) * scale();
}

void StyleChanges::clear() {
    m_values.clear();
    m_inside = false;
    m_code.reset();
}

/// The values are pairs: the code that each has in the table, and itself.
void StyleChanges::take(const Group& group) {
    const std::string_view value = trimmed(group.value);
    if (group.code == attached::application || group.code == attached::brace) {
        m_inside = m_inside && value == "{";
    } else if (!m_inside) {
        m_inside = group.code == attached::text && value == "DSTYLE";
        m_code.reset();
    } else if (m_code) {
        if (m_values.size() < mostChanges) {
            m_values.insert(*m_code, std::string(value));
        }
        m_code.reset();
    } else if (group.code == attached::shortInteger) {
        m_code = toInteger(value);
    }
}

void StyleChanges::applyTo(StyleValues& values) const {
    for (auto change = m_values.constBegin(); change != m_values.constEnd(); ++change) {
        values.set(change.key(), change.value());
    }
}

} // namespace kelplot
