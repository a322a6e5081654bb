// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/HeaderVariables.h"

#include "reader/DrawingUnits.h"
#include "reader/GroupValue.h"
#include "reader/ImageObjects.h"
#include "reader/RecordHeader.h"

namespace kelplot {

void HeaderVariables::setText(std::string_view key, std::string_view value) {
    if (key == "$ACADVER") {
        m_builder.decoder().setVersion(trimmed(value));
    } else if (key == "$DWGCODEPAGE") {
        m_builder.decoder().setCodePage(trimmed(value));
    }
}

void HeaderVariables::setInteger(std::string_view key, int value) {
    if (key == "$INSUNITS") {
        m_insertUnits = value;
        applyUnits();
    } else if (key == "$MEASUREMENT") {
        m_metric = value != 0;
        applyUnits();
    } else if (key == "$PDMODE") {
        m_builder.drawing().pointMode = value;
    } else if (key == "$IMAGEFRAME") {
        m_builder.drawing().imageFrames = value == framesPlotted;
    } else if (key == "$LWDEFAULT" && value >= 0) {
        m_builder.drawing().defaultLineWeight = lineWeightOf(value);
    } else if (key == "$ATTMODE" && value >= 0 && value <= 2) {
        m_builder.setShownAttributes(static_cast<DrawingBuilder::ShownAttributes>(value));
    }
}

void HeaderVariables::setReal(std::string_view key, double value) {
    const double real = saneReal(value);
    if (key == "$LTSCALE" && real > 0.0) {
        m_builder.drawing().lineTypeScale = real;
    } else if (key == "$PDSIZE") {
        m_builder.drawing().pointSize = real;
    }
}

void HeaderVariables::applyUnits() {
    m_builder.drawing().millimetresPerUnit = millimetresPerDrawingUnit(m_insertUnits, m_metric);
}

} // namespace kelplot
