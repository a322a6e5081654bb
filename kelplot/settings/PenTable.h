// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <array>
#include <optional>

#include "drawing/Drawing.h"
#include "keldriver/PlotStyle.h"
#include "keldriver/Types.h"

namespace kelplot {

constexpr int fullInk = 100;

/// How a pen table plots entities.
struct PenRule {
    std::optional<double> width;      ///< millimetres; none: the drawing's line weight
    std::optional<HT_Color> ink;      ///< none: the drawing's colour
    int screening = fullInk;          ///< per cent of the ink that reaches the paper
    bool grey = false;                ///< the ink is plotted as a grey of its lightness
    std::optional<LineType> lineType; ///< its pattern in millimetres; none: the drawing's line type
    bool fitsLineType = false;        ///< its gaps are made to suit the length of each line
    std::optional<HT_PlotStyle::LineEndStyle> ends;
    std::optional<HT_PlotStyle::LineJoinStyle> joins;
    std::optional<HT_PlotStyle::FillStyle> fill; ///< of solid areas
};

/// The rules for the colour numbers 1 to 255, or for the names of plot styles. True colours have no number and stay as
/// they are.
class PenTable {
public:
    static constexpr int lastNumber = 255;

    void set(int number, const PenRule& rule) { m_rules[static_cast<size_t>(number)] = rule; }
    /// Sets the rule for a plot style, its name in any case of letters. A table with such a rule goes by names.
    void set(const QString& style, const PenRule& rule) { m_named.insert(style.toCaseFolded(), rule); }
    bool goesByNames() const { return !m_named.isEmpty(); }
    bool lists(const QString& style) const { return m_named.contains(style.toCaseFolded()); }

    const PenRule& ruleFor(const Colour& colour) const {
        const bool numbered = colour.kind == Colour::Kind::index && colour.value < m_rules.size();
        return m_rules[numbered ? colour.value : 0];
    }
    /// The rule for a plot style; for one that is not listed, that of the style "Normal".
    const PenRule& ruleFor(const QString& style) const;

private:
    std::array<PenRule, lastNumber + 1> m_rules; ///< entry 0 leaves everything to the drawing
    QHash<QString, PenRule> m_named;             ///< by names with their case folded
};

} // namespace kelplot
