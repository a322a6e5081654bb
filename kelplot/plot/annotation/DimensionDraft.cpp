// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/DimensionDraft.h"

#include <algorithm>
#include <cmath>

#include "base/Angles.h"
#include "drawing/ArrowHeads.h"
#include "geometry/Direction.h"

namespace kelplot {

namespace {

LineEnd lineEndOf(const DimensionEnd& end, const DimensionLook& look, const Drawing& drawing) {
    LineEnd result;
    result.shown = end.hasLine;
    result.block = end.arrow;
    result.size = look.arrowSize;
    if (look.tickSize > 0.0) {
        result.isTick = result.isPlainTick = result.lineReachesTip = true;
        result.size = look.tickSize;
    } else if (end.arrow < drawing.blocks.size()) {
        const std::string& name = drawing.blocks[end.arrow].name;
        result.isTick = isTick(name);
        result.lineReachesTip = lineReachesTip(name);
    }
    return result;
}

constexpr double slightTurn = 1e-6; // radians

/// The direction of a text that runs along a line, so that it reads from below or from the right.
double readable(double angle) {
    const double rest = std::remainder(angle, turn / 2.0); // within a quarter of a turn
    return rest <= -turn / 4.0 + slightTurn ? rest + turn / 2.0 : rest;
}

} // namespace

DimensionDraft::DimensionDraft(const Drawing& drawing, const Dimension& dimension, const Box2& textBody)
    : m_dimension(dimension), m_textBody(textBody), m_parts(dimension.elevation) {
    for (size_t i = 0; i < m_ends.size(); ++i) {
        m_ends[i] = lineEndOf(dimension.look.ends[i], dimension.look, drawing);
    }
}

Fitting DimensionDraft::fitting(double room, double heads, double text) const {
    using Fit = DimensionLook::Fit;
    const bool textFits = text <= room;
    const bool headsFit = heads <= room;
    if (heads + text <= room) {
        return {true, true};
    }
    if (look().textForcedInside) {
        return {true, false};
    }
    switch (look().fit) {
    case Fit::none:
        return {false, false};
    case Fit::text:
        return {textFits, false};
    case Fit::heads:
        return {false, headsFit};
    case Fit::textOrHeads:
        break;
    }
    return textFits ? Fitting{true, false} : Fitting{false, headsFit};
}

double DimensionDraft::textAngle(double along, bool level) const {
    if (m_dimension.textTurn) {
        return *m_dimension.textTurn;
    }
    return level ? m_dimension.level : readable(along);
}

TextBox DimensionDraft::boxAt(Vec2 middle, double angle) const {
    return {middle, unitVector(angle), Vec2{m_textBody.width(), m_textBody.height()} * 0.5};
}

Vec2 DimensionDraft::statedMiddle() const {
    const Vec3& position = m_dimension.text->position;
    return {position.x, position.y};
}

double DimensionDraft::textRise(double angle) const {
    const TextBox box = boxAt({}, angle);
    const double clear = box.halfExtent({0.0, 1.0}) + look().gap;
    switch (look().textRow) {
    case DimensionLook::TextRow::above:
        if (std::abs(std::sin(angle)) > slightTurn) {
            break; // a level text stands in a slanting line
        }
        return clear;
    case DimensionLook::TextRow::below:
        return -clear;
    case DimensionLook::TextRow::inLine:
        break;
    }
    return look().textRise * m_dimension.text->height;
}

void DimensionDraft::addText(const TextBox& box) {
    const Vec2 off = m_textBody.isEmpty() ? Vec2() : m_textBody.center();
    const Vec2 position = box.middle - box.along * off.x - leftNormal(box.along) * off.y;
    m_parts.addText(*m_dimension.text, position, angleOf(box.along), look().textColour);
}

void DimensionDraft::addEnd(size_t index, Vec2 tip, double direction) {
    const LineEnd& end = m_ends[index];
    if (!end.shown) {
        return;
    }
    if (end.isPlainTick) {
        const Vec2 stroke = (unitVector(direction) + leftNormal(unitVector(direction))) * end.size;
        m_parts.addLine(tip - stroke, tip + stroke, look().line);
    } else {
        m_parts.addBlock(end.block, tip, direction, end.size, look().line);
    }
}

void DimensionDraft::addLine(Vec2 from, Vec2 to, const TextBox* text) {
    const double length = (to - from).length();
    if (!(length > 0.0)) {
        return;
    }
    const Vec2 along = (to - from) * (1.0 / length);
    const bool isCut = text != nullptr && !text->onLine(from, along, 0.0).isEmpty();
    const Interval cut = isCut ? text->onLine(from, along, look().gap) : Interval{length, length};
    if (cut.low > 0.0) {
        m_parts.addLine(from, from + along * std::min(cut.low, length), look().line);
    }
    if (cut.high < length) {
        m_parts.addLine(from + along * std::max(cut.high, 0.0), to, look().line);
    }
}

void DimensionDraft::addExtensionLine(size_t index, Vec2 measured, Vec2 end, Vec2 direction, double toText) {
    const DimensionEnd& side = look().ends[index];
    const double distance = dot(end - measured, direction);
    const double shortened = look().extensionLength > 0.0 ? distance - look().extensionLength : 0.0;
    const double start = std::max(look().extensionGap, shortened);
    const double stop = distance + std::max(look().extensionBeyond, toText);
    if (side.hasExtensionLine && start < stop) {
        m_parts.addLine(measured + direction * start, measured + direction * stop, side.extensionLine);
    }
}

} // namespace kelplot
