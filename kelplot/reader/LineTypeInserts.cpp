// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/LineTypeInserts.h"

#include <cmath>

namespace kelplot {

namespace {

/// Draws a line through the gaps on both sides of the end of an entry.
void closeGaps(size_t entry, std::vector<double>& pattern) {
    for (const size_t beside : {entry, (entry + 1) % pattern.size()}) {
        pattern[beside] = std::abs(pattern[beside]);
    }
}

} // namespace

void LineTypeInserts::add(const LineTypeInsert& insert, const Drawing& drawing, LineType& lineType) const {
    const uint32_t styleIndex = m_styles.value(insert.style, 0);
    const TextStyle& style = drawing.textStyles[styleIndex < drawing.textStyles.size() ? styleIndex : 0];
    LineTypeText added;
    for (size_t i = 0; i <= insert.entry; ++i) {
        added.at += std::abs(lineType.pattern[i]);
    }
    added.offset = insert.offset;
    added.level = insert.level;
    added.text.stretches = {{insert.text, {}}};
    added.text.style = styleIndex;
    added.text.height = insert.scale * (style.height > 0.0 ? style.height : 1.0);
    added.text.rotation = insert.rotation;
    added.text.widthFactor = style.widthFactor;
    added.text.obliqueAngle = style.obliqueAngle;
    lineType.texts.push_back(std::move(added));
}

void LineTypeInserts::resolve(Drawing& drawing) const {
    for (auto each = m_inserts.cbegin(); each != m_inserts.cend(); ++each) {
        LineType& lineType = drawing.lineTypes[each.key()];
        for (const LineTypeInsert& insert : each.value()) {
            if (insert.isShape || m_shapeFiles.contains(insert.style)) {
                lineType.lacksShapes = true;
                closeGaps(insert.entry, lineType.pattern);
            } else if (!insert.text.empty()) {
                add(insert, drawing, lineType);
            }
        }
    }
}

} // namespace kelplot
