// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/ToleranceDecoder.h"

#include <algorithm>
#include <cmath>

#include "geometry/PlanMap.h"
#include "reader/GroupValue.h"
#include "reader/annotation/DimensionLook.h"

namespace kelplot {

namespace {

constexpr std::string_view cellEnd = "%%v";
constexpr std::string_view rowEnd = "^J";

/// The stretches of a text between marks, empty ones left out; no more than any frame has.
std::vector<std::string_view> parts(std::string_view text, std::string_view mark) {
    constexpr size_t most = 16;
    std::vector<std::string_view> result;
    while (!text.empty() && result.size() < most) {
        const size_t end = std::min(text.find(mark), text.size());
        if (!trimmed(text.substr(0, end)).empty()) {
            result.push_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + mark.size(), text.size()));
    }
    return result;
}

} // namespace

void ToleranceDecoder::begin(std::string_view) {
    m_style.clear();
    m_text.clear();
    m_position = {};
    m_direction = {1.0, 0.0, 0.0};
    m_changes.clear();
}

void ToleranceDecoder::take(const Group& group) {
    if (takePoint(group, 10, m_position) || takePoint(group, 11, m_direction)) {
        return;
    }
    if (group.code == 1) {
        m_text = group.value;
    } else if (group.code == 3) {
        m_style = trimmed(group.value);
    }
}

void ToleranceDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    StyleValues style = m_styles.styleOf(m_style, builder);
    m_changes.applyTo(style);
    ToleranceFrame frame;
    frame.extrusion = header.extrusion;
    frame.position = toPlane(m_position, header.extrusion);
    const Vec3 direction = toPlane(m_direction, header.extrusion);
    frame.rotation = std::atan2(direction.y, direction.x);
    const std::string text = builder.decoder().decodeMarkup(m_text);
    for (const std::string_view row : parts(text, rowEnd)) {
        std::vector<MText> cells;
        for (const std::string_view cell : parts(row, cellEnd)) {
            cells.push_back(annotationText(std::string(cell), style, builder));
            cells.back().masked = cells.back().framed = false; // the cells are frames
        }
        if (!cells.empty()) {
            frame.textHeight = cells.front().height;
            frame.rows.push_back(std::move(cells));
        }
    }
    frame.line.colour = colourOfNumber(style.integer(StyleCode::lineColour));
    frame.textColour = colourOfNumber(style.integer(StyleCode::textColour));
    frame.gap = std::abs(style.real(StyleCode::gap)) * style.scale();
    if (frame.rows.empty()) {
        builder.addUnplotted(header, "TOLERANCE without text");
    } else {
        builder.addAnnotation(header, std::move(frame));
    }
}

} // namespace kelplot
