// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// The codes that the values of a dimension style have, in its table and in what an entity says other than its style.
enum class StyleCode : int {
    postfix = 3,
    alternatePostfix = 4,
    arrowName = 5, ///< old drawings name the blocks of arrow heads, newer ones give their handles
    firstArrowName = 6,
    secondArrowName = 7,
    scale = 40,
    arrowSize = 41,
    extensionGap = 42,
    extensionBeyond = 44,
    rounding = 45,
    lineBeyond = 46,
    upperTolerance = 47,
    lowerTolerance = 48,
    extensionLength = 49,
    textFill = 69,
    textFillColour = 70,
    tolerances = 71,
    limits = 72,
    levelInside = 73,
    levelOutside = 74,
    noFirstExtension = 75,
    noSecondExtension = 76,
    textRow = 77,
    zeros = 78,
    angleZeros = 79,
    textHeight = 140,
    centreMark = 141,
    tickSize = 142,
    alternateFactor = 143,
    lengthFactor = 144,
    textRise = 145,
    toleranceHeight = 146, ///< in heights of the text
    gap = 147,
    alternateRounding = 148,
    alternates = 170,
    alternateDigits = 171,
    lineInside = 172,
    ownArrows = 173, ///< each end has an arrow head of its own
    textForcedInside = 174,
    noLineOutside = 175,
    lineColour = 176,
    extensionColour = 177,
    textColour = 178,
    angleDigits = 179,
    oldUnit = 270,
    digits = 271,
    toleranceDigits = 272,
    alternateUnit = 273,
    alternateToleranceDigits = 274,
    angleUnit = 275,
    fractions = 276,
    unit = 277,
    decimalSign = 278,
    textMoves = 279,
    textPlace = 280,
    noFirstLine = 281,
    noSecondLine = 282,
    toleranceLevel = 283,
    toleranceZeros = 284,
    alternateZeros = 285,
    alternateToleranceZeros = 286,
    fit = 289,
    fixedExtensions = 290,
    textStyle = 340,
    leaderArrow = 341,
    arrow = 342,
    firstArrow = 343,
    secondArrow = 344,
    lineType = 345,
    firstExtensionType = 346,
    secondExtensionType = 347,
    lineWeight = 371,
    extensionWeight = 372,
};

/// The values of a dimension style; what a drawing leaves out has the value that all programs give it then.
class StyleValues {
public:
    void set(int code, std::string_view value) { m_values.insert(code, std::string(value)); }

    bool has(StyleCode code) const { return m_values.contains(static_cast<int>(code)); }
    double real(StyleCode code) const;
    int integer(StyleCode code) const;
    bool flag(StyleCode code) const { return integer(code) != 0; }
    uint64_t handle(StyleCode code) const;
    /// As the file writes it.
    std::string text(StyleCode code) const { return m_values.value(static_cast<int>(code)); }

    /// The factor for lengths.
    double scale() const;
    /// A length that is not negative, in drawing units.
    double length(StyleCode code) const;

private:
    QHash<int, std::string> m_values; ///< as the file has them
};

/// Gathers what an entity says other than its dimension style, from what programs attach to it.
class StyleChanges {
public:
    void clear();
    void take(const Group& group);
    void applyTo(StyleValues& values) const;

private:
    QHash<int, std::string> m_values;
    bool m_inside = false;
    std::optional<int> m_code; ///< its value comes next
};

} // namespace kelplot
