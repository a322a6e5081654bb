#include "reader/HeaderVariables.h"

#include "reader/DrawingUnits.h"
#include "reader/GroupValue.h"
#include "reader/RecordHeader.h"

namespace kelplot {

void HeaderVariables::setText(std::string_view key, std::string_view value) {
    if (key == "$ACADVER") {
        builder_.decoder().setVersion(trimmed(value));
    } else if (key == "$DWGCODEPAGE") {
        builder_.decoder().setCodePage(trimmed(value));
    }
}

void HeaderVariables::setInteger(std::string_view key, int value) {
    if (key == "$INSUNITS") {
        insertUnits_ = value;
        applyUnits();
    } else if (key == "$MEASUREMENT") {
        metric_ = value != 0;
        applyUnits();
    } else if (key == "$PDMODE") {
        builder_.drawing().pointMode = value;
    } else if (key == "$LWDEFAULT" && value >= 0) {
        builder_.drawing().defaultLineWeight = lineWeightOf(value);
    }
}

void HeaderVariables::setReal(std::string_view key, double value) {
    const double real = saneReal(value);
    if (key == "$LTSCALE" && real > 0.0) {
        builder_.drawing().lineTypeScale = real;
    } else if (key == "$PDSIZE") {
        builder_.drawing().pointSize = real;
    }
}

void HeaderVariables::applyUnits() {
    builder_.drawing().millimetresPerUnit = millimetresPerDrawingUnit(insertUnits_, metric_);
}

} // namespace kelplot
