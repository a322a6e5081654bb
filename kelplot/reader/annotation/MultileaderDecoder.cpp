// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/MultileaderDecoder.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "base/Angles.h"
#include "drawing/ArrowHeads.h"
#include "geometry/PlanMap.h"
#include "reader/GroupValue.h"
#include "reader/entity/SplineDecoder.h"
#include "reader/mtext/MTextMarkup.h"
#include "reader/mtext/TextCodes.h"

namespace kelplot {

namespace {

constexpr int curvedLines = 2;
constexpr int exactSpacing = 2;

/// A text of a block where a reference puts it.
Text placed(const Text& text, const Insert& reference, const Vec3& basePoint) {
    const double cosine = std::cos(reference.rotation);
    const double sine = std::sin(reference.rotation);
    const auto at = [&](const Vec3& p) {
        const double x = (p.x - basePoint.x) * reference.scale.x;
        const double y = (p.y - basePoint.y) * reference.scale.y;
        return reference.position + Vec3{cosine * x - sine * y, sine * x + cosine * y, 0.0};
    };
    Text result = text;
    result.position = at(text.position);
    result.alignment = at(text.alignment);
    result.rotation = text.rotation + reference.rotation;
    result.height = text.height * std::abs(reference.scale.y);
    return result;
}

} // namespace

void MultileaderDecoder::begin(std::string_view) {
    m_record = Record();
}

/// The marks that parts begin and end with. A text has the code of one of them.
bool MultileaderDecoder::changePart(const Group& group) {
    struct Mark {
        Part from;
        int code;
        bool begins; ///< another part, and has a brace at its end
        Part to;
    };
    constexpr Mark marks[] = {
        {Part::whole, 300, true, Part::context},   {Part::context, 302, true, Part::leader},
        {Part::leader, 304, true, Part::line},     {Part::line, 305, false, Part::leader},
        {Part::leader, 303, false, Part::context}, {Part::context, 301, false, Part::whole},
    };
    const std::string_view value = trimmed(group.value);
    const bool hasBrace = !value.empty() && value.back() == '{';
    const auto* const mark = std::find_if(std::begin(marks), std::end(marks), [&](const Mark& each) {
        return each.from == m_record.part && each.code == group.code && (hasBrace || !each.begins);
    });
    if (mark == std::end(marks)) {
        return false;
    }
    m_record.part = mark->to;
    if (mark->to == Part::leader && mark->begins) {
        m_record.leaders.emplace_back();
    } else if (mark->to == Part::line) {
        m_record.leaders.back().lines.emplace_back();
    }
    return true;
}

void MultileaderDecoder::take(const Group& group) {
    if (changePart(group)) {
        return;
    }
    switch (m_record.part) {
    case Part::whole:
        takeOfWhole(group);
        break;
    case Part::context:
        takeOfContext(group);
        break;
    case Part::leader:
        takeOfLeader(group);
        break;
    case Part::line:
        takeOfLine(group);
        break;
    }
}

void MultileaderDecoder::takeOfWhole(const Group& group) {
    switch (group.code) {
    case 91:
        m_record.lineColour = toInteger(group.value);
        break;
    case 170: {
        const int kind = toInteger(group.value);
        m_record.hasLines = kind != 0;
        m_record.curved = kind == curvedLines;
        break;
    }
    case 171:
        m_record.lineWeight = toInteger(group.value);
        break;
    case 291:
        m_record.hasLanding = toInteger(group.value) != 0;
        break;
    case 292:
        m_record.framed = toInteger(group.value) != 0;
        break;
    case 302:
        if (!m_record.attributes.empty()) {
            m_record.attributes.back().text = group.value;
        }
        break;
    case 330:
        m_record.attributes.push_back({toHandle(group.value), {}});
        break;
    case 341:
        m_record.lineType = toHandle(group.value);
        break;
    case 342:
        m_record.arrow = toHandle(group.value);
        break;
    default:
        break;
    }
}

void MultileaderDecoder::takeOfContext(const Group& group) {
    switch (group.code) {
    case 41:
        m_record.text.height = toReal(group.value);
        break;
    case 140:
        m_record.arrowSize = toReal(group.value);
        break;
    case 145:
        m_record.gap = toReal(group.value);
        break;
    case 290:
        m_record.hasText = toInteger(group.value) != 0;
        break;
    case 296:
        m_record.hasBlock = toInteger(group.value) != 0;
        break;
    default:
        if (m_record.hasBlock) {
            takeOfBlock(group);
        } else if (m_record.hasText) {
            takeOfText(group);
        }
        break;
    }
}

void MultileaderDecoder::takeOfText(const Group& group) {
    if (takePoint(group, 11, m_record.normal) || takePoint(group, 12, m_record.text.position) ||
        takePoint(group, 13, m_record.text.direction)) {
        return;
    }
    switch (group.code) {
    case 304:
        m_record.text.markup += group.value;
        break;
    case 340:
        m_record.text.style = toHandle(group.value);
        break;
    case 43:
        m_record.text.width = std::max(0.0, toReal(group.value));
        break;
    case 45:
        m_record.text.lineSpacing = toReal(group.value);
        break;
    case 90:
        m_record.text.colour = toInteger(group.value);
        break;
    case 91:
        m_record.text.maskColour = toInteger(group.value);
        break;
    case 141:
        m_record.text.maskScale = toReal(group.value);
        break;
    case 170:
        m_record.text.lineSpacingStyle = toInteger(group.value);
        break;
    case 171:
        m_record.text.alignment = toInteger(group.value);
        break;
    case 291:
        m_record.text.masked = toInteger(group.value) != 0;
        break;
    default:
        break;
    }
}

void MultileaderDecoder::takeOfBlock(const Group& group) {
    if (takePoint(group, 14, m_record.normal) || takePoint(group, 15, m_record.block.position) ||
        takePoint(group, 16, m_record.block.scale)) {
        return;
    }
    switch (group.code) {
    case 341:
        m_record.block.block = toHandle(group.value);
        break;
    case 46:
        m_record.block.rotation = toReal(group.value);
        break;
    case 93:
        m_record.block.colour = toInteger(group.value);
        break;
    default:
        break;
    }
}

void MultileaderDecoder::takeOfLeader(const Group& group) {
    Leader& leader = m_record.leaders.back();
    if (takePoint(group, 10, leader.end) || takePoint(group, 11, leader.direction)) {
        return;
    }
    if (group.code == 290) {
        leader.hasEnd = toInteger(group.value) != 0;
    } else if (group.code == 40) {
        leader.landing = toReal(group.value);
    }
}

void MultileaderDecoder::takeOfLine(const Group& group) {
    std::vector<Vec3>& points = m_record.leaders.back().lines.back();
    if (group.code == 10) {
        points.emplace_back();
    }
    if (!points.empty()) {
        takePoint(group, 10, points.back());
    }
}

void MultileaderDecoder::addArrow(std::vector<Vec3>& points, const RecordHeader& header,
                                  DrawingBuilder& builder) const {
    const Vec3 first = points[1] - points[0];
    const double length = first.length();
    if (!(m_record.arrowSize > 0.0) || !(length > m_record.arrowSize)) {
        return;
    }
    const std::string stated = m_blocks.nameOf(m_record.arrow);
    const std::string name = stated.empty() ? std::string(usualArrowHead) : stated;
    const Vec3 tip = toPlane(points[0], m_record.normal);
    const Vec3 forward = toPlane(points[0] - points[1], m_record.normal);
    Insert arrow;
    arrow.block = builder.block(name);
    arrow.position = tip;
    arrow.scale = {m_record.arrowSize, m_record.arrowSize, m_record.arrowSize};
    arrow.rotation = std::atan2(forward.y, forward.x);
    builder.add(header, arrow);
    if (!m_record.curved && !lineReachesTip(name)) {
        points[0] = points[0] + first * (m_record.arrowSize / length);
    }
}

void MultileaderDecoder::addLine(std::vector<Vec3> points, const RecordHeader& header, DrawingBuilder& builder) const {
    if (m_record.curved && points.size() > 2) {
        Spline spline;
        spline.fitPoints = std::move(points);
        if (completeSpline(spline)) {
            builder.addInWorld(header, std::move(spline));
        }
        return;
    }
    Polyline path;
    path.spatial = true;
    for (const Vec3& point : points) {
        path.vertices.push_back(PolylineVertex{point});
    }
    builder.addInWorld(header, std::move(path));
}

void MultileaderDecoder::addLeader(const Leader& leader, const RecordHeader& header, DrawingBuilder& builder) const {
    RecordHeader look = withColour(header, m_record.lineColour);
    look.attributes.lineType = builder.handles().lineType(m_record.lineType, header.attributes.lineType);
    if (m_record.lineWeight != lineWeightByBlock) {
        look.attributes.lineWeight = lineWeightOf(m_record.lineWeight);
    }
    if (look.attributes.lineType == lineTypeByBlock) {
        look.attributes.lineType = header.attributes.lineType;
    }
    look.extrusion = m_record.normal;
    for (std::vector<Vec3> points : leader.lines) {
        if (leader.hasEnd) {
            points.push_back(leader.end);
        }
        points.erase(std::unique(points.begin(), points.end()), points.end());
        if (points.size() > 1) {
            addArrow(points, look, builder);
            addLine(std::move(points), look, builder);
        }
    }
    const double length = leader.direction.length();
    if (m_record.hasLanding && leader.hasEnd && leader.landing > 0.0 && length > 0.0) {
        addLine({leader.end, leader.end + leader.direction * (leader.landing / length)}, look, builder);
    }
}

void MultileaderDecoder::addText(const RecordHeader& header, DrawingBuilder& builder) const {
    constexpr int alignments = 3;
    MText text;
    text.style = builder.handles().textStyle(m_record.text.style);
    const TextStyle& style = builder.drawing().textStyles[text.style];
    text.height = m_record.text.height > 0.0 ? m_record.text.height : (style.height > 0.0 ? style.height : text.height);
    text.position = toPlane(m_record.text.position, m_record.normal);
    const Vec3 direction = toPlane(m_record.text.direction, m_record.normal);
    text.rotation = std::atan2(direction.y, direction.x);
    text.attachment = std::clamp(m_record.text.alignment, 1, alignments);
    text.width = m_record.text.width;
    text.lineSpacing = m_record.text.lineSpacing > 0.0 ? m_record.text.lineSpacing : 1.0;
    text.exactLineSpacing = m_record.text.lineSpacingStyle == exactSpacing;
    text.framed = m_record.framed;
    text.masked = m_record.text.masked;
    if (text.masked) {
        text.maskColour = withColour(RecordHeader(), m_record.text.maskColour).colour();
        text.border = std::max(m_record.text.maskScale - 1.0, 0.0) * text.height;
    }
    if (text.framed) {
        text.border = std::max(m_record.gap, 0.0);
    }
    CharacterFormat format;
    format.height = text.height;
    format.widthFactor = style.widthFactor;
    format.obliqueAngle = style.obliqueAngle;
    text.paragraphs = paragraphsOf(builder.decoder().decodeMarkup(m_record.text.markup), format, builder.decoder());
    RecordHeader look = withColour(header, m_record.text.colour);
    look.extrusion = m_record.normal;
    builder.add(look, std::move(text));
}

void MultileaderDecoder::addBlock(const RecordHeader& header, DrawingBuilder& builder) const {
    Insert content;
    content.block = builder.block(m_blocks.nameOf(m_record.block.block));
    content.position = toPlane(m_record.block.position, m_record.normal);
    content.scale = m_record.block.scale;
    content.rotation = m_record.block.rotation;
    RecordHeader look = withColour(header, m_record.block.colour);
    look.extrusion = m_record.normal;
    builder.add(look, content);
    const Vec3 basePoint = builder.drawing().blocks[content.block].basePoint;
    for (const AttributeText& attribute : m_record.attributes) {
        if (const Text* const definition = builder.handles().attributeDefinition(attribute.definition)) {
            Text text = placed(*definition, content, basePoint);
            text.stretches = textStretches(builder.decoder().decode(attribute.text), builder.decoder());
            builder.add(look, std::move(text));
        }
    }
}

void MultileaderDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    for (const Leader& leader : m_record.leaders) {
        if (m_record.hasLines) {
            addLeader(leader, header, builder);
        }
    }
    const bool hasBlock = m_record.hasBlock && !m_blocks.nameOf(m_record.block.block).empty();
    if (hasBlock) {
        addBlock(header, builder);
    } else if (m_record.hasText && !m_record.text.markup.empty()) {
        addText(header, builder);
    } else if (m_record.hasText || m_record.hasBlock || m_record.leaders.empty()) {
        builder.addUnplotted(header, "MULTILEADER without its content");
    }
}

} // namespace kelplot
