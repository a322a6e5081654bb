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

/// Adds a text in the style of this index.
void addText(const LineTypeInsert& insert, uint32_t styleIndex, const Drawing& drawing, LineType& lineType) {
    const TextStyle& style = drawing.textStyles[styleIndex];
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

} // namespace

void LineTypeInserts::resolve(const QHash<uint64_t, uint32_t>& textStyles, Drawing& drawing) const {
    for (auto each = m_inserts.cbegin(); each != m_inserts.cend(); ++each) {
        LineType& lineType = drawing.lineTypes[each.key()];
        for (const LineTypeInsert& insert : each.value()) {
            if (insert.isShape || m_shapeFiles.contains(insert.style)) {
                lineType.lacksShapes = true;
                closeGaps(insert.entry, lineType.pattern);
            } else if (!insert.text.empty()) {
                addText(insert, textStyles.value(insert.style, 0), drawing, lineType);
            }
        }
    }
}

} // namespace kelplot
