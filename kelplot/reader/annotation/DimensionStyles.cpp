// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/DimensionStyles.h"

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

QString keyOf(std::string_view name, const TextEncoding& decoder) {
    return QString::fromStdString(decoder.decode(name)).toCaseFolded();
}

constexpr int nameCode = 2;
/// Of the two values with this code the first, next to the name, says nothing of the look; the second is the colour
/// behind the text.
constexpr int flagsCode = 70;

struct Variable {
    const char* name;
    StyleCode code;
};
constexpr Variable variables[] = {
    {"$DIMPOST", StyleCode::postfix},
    {"$DIMAPOST", StyleCode::alternatePostfix},
    {"$DIMBLK", StyleCode::arrowName},
    {"$DIMBLK1", StyleCode::firstArrowName},
    {"$DIMBLK2", StyleCode::secondArrowName},
    {"$DIMSCALE", StyleCode::scale},
    {"$DIMASZ", StyleCode::arrowSize},
    {"$DIMEXO", StyleCode::extensionGap},
    {"$DIMEXE", StyleCode::extensionBeyond},
    {"$DIMRND", StyleCode::rounding},
    {"$DIMDLE", StyleCode::lineBeyond},
    {"$DIMTP", StyleCode::upperTolerance},
    {"$DIMTM", StyleCode::lowerTolerance},
    {"$DIMTOL", StyleCode::tolerances},
    {"$DIMLIM", StyleCode::limits},
    {"$DIMTIH", StyleCode::levelInside},
    {"$DIMTOH", StyleCode::levelOutside},
    {"$DIMSE1", StyleCode::noFirstExtension},
    {"$DIMSE2", StyleCode::noSecondExtension},
    {"$DIMTAD", StyleCode::textRow},
    {"$DIMZIN", StyleCode::zeros},
    {"$DIMAZIN", StyleCode::angleZeros},
    {"$DIMTXT", StyleCode::textHeight},
    {"$DIMCEN", StyleCode::centreMark},
    {"$DIMTSZ", StyleCode::tickSize},
    {"$DIMALTF", StyleCode::alternateFactor},
    {"$DIMLFAC", StyleCode::lengthFactor},
    {"$DIMTVP", StyleCode::textRise},
    {"$DIMTFAC", StyleCode::toleranceHeight},
    {"$DIMGAP", StyleCode::gap},
    {"$DIMALTRND", StyleCode::alternateRounding},
    {"$DIMALT", StyleCode::alternates},
    {"$DIMALTD", StyleCode::alternateDigits},
    {"$DIMTOFL", StyleCode::lineInside},
    {"$DIMSAH", StyleCode::ownArrows},
    {"$DIMTIX", StyleCode::textForcedInside},
    {"$DIMSOXD", StyleCode::noLineOutside},
    {"$DIMCLRD", StyleCode::lineColour},
    {"$DIMCLRE", StyleCode::extensionColour},
    {"$DIMCLRT", StyleCode::textColour},
    {"$DIMADEC", StyleCode::angleDigits},
    {"$DIMUNIT", StyleCode::oldUnit},
    {"$DIMDEC", StyleCode::digits},
    {"$DIMTDEC", StyleCode::toleranceDigits},
    {"$DIMALTU", StyleCode::alternateUnit},
    {"$DIMALTTD", StyleCode::alternateToleranceDigits},
    {"$DIMAUNIT", StyleCode::angleUnit},
    {"$DIMFRAC", StyleCode::fractions},
    {"$DIMLUNIT", StyleCode::unit},
    {"$DIMDSEP", StyleCode::decimalSign},
    {"$DIMTMOVE", StyleCode::textMoves},
    {"$DIMJUST", StyleCode::textPlace},
    {"$DIMSD1", StyleCode::noFirstLine},
    {"$DIMSD2", StyleCode::noSecondLine},
    {"$DIMTOLJ", StyleCode::toleranceLevel},
    {"$DIMTZIN", StyleCode::toleranceZeros},
    {"$DIMALTZ", StyleCode::alternateZeros},
    {"$DIMALTTZ", StyleCode::alternateToleranceZeros},
    {"$DIMATFIT", StyleCode::fit},
    {"$DIMLWD", StyleCode::lineWeight},
    {"$DIMLWE", StyleCode::extensionWeight},
};

StyleValues valuesOf(const QHash<QString, std::string>& header) {
    StyleValues style;
    for (const Variable& variable : variables) {
        const auto found = header.constFind(QLatin1String(variable.name));
        if (found != header.constEnd()) {
            style.set(static_cast<int>(variable.code), *found);
        }
    }
    return style;
}

/// Up to release 12 dimensions have the units and digits of the drawing, and fractions within their lines.
constexpr Variable oldVariables[] = {
    {"$LUNITS", StyleCode::unit},      {"$LUPREC", StyleCode::digits},      {"$LUPREC", StyleCode::toleranceDigits},
    {"$AUNITS", StyleCode::angleUnit}, {"$AUPREC", StyleCode::angleDigits},
};

void addOldValues(const QHash<QString, std::string>& header, StyleValues& style) {
    constexpr const char* plainFractions = "2";
    if (header.contains(QStringLiteral("$DIMDEC")) || style.has(StyleCode::digits)) {
        return; // a newer one
    }
    for (const Variable& variable : oldVariables) {
        const auto found = header.constFind(QLatin1String(variable.name));
        if (found != header.constEnd() && !style.has(variable.code)) {
            style.set(static_cast<int>(variable.code), *found);
        }
    }
    if (header.contains(QStringLiteral("$LUNITS")) && !style.has(StyleCode::fractions)) {
        style.set(static_cast<int>(StyleCode::fractions), plainFractions);
    }
}

} // namespace

void DimensionStyles::begin(std::string_view) {
    m_name.clear();
    m_hasFlags = false;
    m_style = StyleValues();
}

void DimensionStyles::take(const Group& group) {
    if (group.code == nameCode) {
        m_name = trimmed(group.value);
    } else if (group.code == flagsCode && !m_hasFlags) {
        m_hasFlags = true;
    } else {
        m_style.set(group.code, trimmed(group.value));
    }
}

void DimensionStyles::end(const RecordHeader&, DrawingBuilder& builder) {
    m_styles.insert(keyOf(m_name, builder.decoder()), m_style);
}

StyleValues DimensionStyles::styleOf(std::string_view name, const DrawingBuilder& builder) const {
    const std::string inUse = builder.dimensionVariables().value(QStringLiteral("$DIMSTYLE"));
    const auto found = m_styles.constFind(keyOf(name.empty() ? std::string_view(inUse) : name, builder.decoder()));
    StyleValues style = found == m_styles.constEnd() ? valuesOf(builder.dimensionVariables()) : *found;
    addOldValues(builder.dimensionVariables(), style);
    return style;
}

} // namespace kelplot
