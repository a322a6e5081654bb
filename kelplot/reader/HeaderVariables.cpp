// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/HeaderVariables.h"

#include <QByteArray>
#include <array>
#include <cstddef>
#include <string>

#include "reader/GroupValue.h"
#include "reader/RecordHeader.h"
#include "reader/entity/ImageDecoder.h"

namespace kelplot {

namespace {

constexpr double inch = 25.4;
constexpr double surveyFoot = 1200000.0 / 3937.0;

/// By the number of the unit; 0 stands for no unit.
constexpr std::array<double, 25> millimetres = {
    0.0,
    inch,
    12 * inch,
    63360 * inch, // mile
    1.0,
    10.0,
    1000.0,
    1e6,
    inch * 1e-6, // microinch
    inch * 1e-3, // mil
    36 * inch,   // yard
    1e-7,        // ångström
    1e-6,
    1e-3,
    100.0,
    1e4,
    1e5,
    1e12,
    1.495978707e14,     // astronomical unit
    9.4607304725808e18, // light year
    3.0856775814913e19, // parsec
    surveyFoot,
    surveyFoot / 12,
    surveyFoot * 3,
    surveyFoot * 5280,
};

/// Old drawings have no units of dimensions: those of the drawing are theirs.
bool isOfDimensions(std::string_view key) {
    constexpr std::string_view start = "$DIM";
    return key.substr(0, start.size()) == start || key == "$LUNITS" || key == "$LUPREC" || key == "$AUNITS" ||
           key == "$AUPREC";
}

} // namespace

double millimetresPerDrawingUnit(int insertUnits, bool metric) {
    const auto unit = static_cast<size_t>(insertUnits);
    if (insertUnits > 0 && unit < millimetres.size()) {
        return millimetres[unit];
    }
    return metric ? 1.0 : inch;
}

void HeaderVariables::setText(std::string_view key, std::string_view value) {
    if (key == "$ACADVER") {
        m_builder.decoder().setVersion(trimmed(value));
    } else if (key == "$DWGCODEPAGE") {
        m_builder.decoder().setCodePage(trimmed(value));
    } else if (isOfDimensions(key)) {
        m_builder.setDimensionVariable(std::string(key), std::string(trimmed(value)));
    }
}

void HeaderVariables::setInteger(std::string_view key, int value) {
    if (key == "$INSUNITS") {
        m_insertUnits = value;
        applyUnits();
    } else if (key == "$MEASUREMENT") {
        m_metric = value != 0;
        m_builder.drawing().metric = m_metric;
        applyUnits();
    } else if (key == "$TILEMODE") {
        m_builder.drawing().paperIsActive = value == 0;
    } else if (key == "$PSLTSCALE") {
        m_builder.drawing().paperLineTypes = value != 0;
    } else if (key == "$PSTYLEMODE") {
        m_builder.drawing().namesPlotStyles = value == 0;
    } else if (key == "$PDMODE") {
        m_builder.drawing().pointMode = value;
    } else if (key == "$IMAGEFRAME") {
        m_builder.drawing().imageFrames = value == framesPlotted;
    } else if (key == "$XCLIPFRAME") {
        m_builder.drawing().clipFrames = value == framesPlotted;
    } else if (key == "$LWDEFAULT" && value >= 0) {
        m_builder.drawing().defaultLineWeight = lineWeightOf(value);
    } else if (key == "$ATTMODE" && value >= 0 && value <= 2) {
        m_builder.setShownAttributes(static_cast<DrawingBuilder::ShownAttributes>(value));
    } else if (isOfDimensions(key)) {
        m_builder.setDimensionVariable(std::string(key), std::to_string(value));
    }
}

void HeaderVariables::setReal(std::string_view key, double value) {
    const double real = saneReal(value);
    if (key == "$LTSCALE" && real > 0.0) {
        m_builder.drawing().lineTypeScale = real;
    } else if (key == "$PDSIZE") {
        m_builder.drawing().pointSize = real;
    } else if (isOfDimensions(key)) {
        m_builder.setDimensionVariable(std::string(key), QByteArray::number(real, 'g', 17).toStdString());
    }
}

void HeaderVariables::setPoint(std::string_view key, const Vec3& value) {
    if (key == "$INSBASE") {
        m_builder.drawing().basePoint = value;
    }
}

void HeaderVariables::applyUnits() {
    m_builder.drawing().millimetresPerUnit = millimetresPerDrawingUnit(m_insertUnits, m_metric);
}

} // namespace kelplot
