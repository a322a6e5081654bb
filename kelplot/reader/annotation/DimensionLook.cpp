// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/DimensionLook.h"

#include "drawing/ArrowHeads.h"
#include "reader/RecordHeader.h"
#include "reader/mtext/MTextMarkup.h"

#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

constexpr int middleOfText = 5; ///< where a text hangs on its position

/// The codes of what the two ends have each for itself.
struct EndCodes {
    StyleCode arrow;
    StyleCode arrowName;
    StyleCode withoutExtension;
    StyleCode withoutLine;
    StyleCode extensionType;
};
constexpr EndCodes endCodes[] = {
    {StyleCode::firstArrow, StyleCode::firstArrowName, StyleCode::noFirstExtension, StyleCode::noFirstLine,
     StyleCode::firstExtensionType},
    {StyleCode::secondArrow, StyleCode::secondArrowName, StyleCode::noSecondExtension, StyleCode::noSecondLine,
     StyleCode::secondExtensionType},
};

/// The block of an arrow head that an old drawing names, which may leave out the mark at the start of the usual names.
uint32_t arrowBlock(std::string name, DrawingBuilder& builder) {
    if (name.empty()) {
        return builder.block(usualArrowHead);
    }
    const uint32_t block = builder.block(name);
    const bool isUsual = name.front() != '_' && arrowHead('_' + name);
    return isUsual && !builder.drawing().blocks[block].defined ? builder.block('_' + name) : block;
}

std::string arrowName(const StyleValues& style, StyleCode handle, StyleCode name, const BlockRecords& blocks) {
    const std::string byHandle = blocks.nameOf(style.handle(handle));
    return byHandle.empty() ? style.text(name) : byHandle;
}

LineWeight weightOf(const StyleValues& style, StyleCode code) {
    return lineWeightOf(style.integer(code));
}

DimensionEnd endOf(const EndCodes& codes, const StyleValues& style, const BlockRecords& blocks,
                   DrawingBuilder& builder) {
    const bool own = style.flag(StyleCode::ownArrows);
    DimensionEnd end;
    end.arrow = arrowBlock(own ? arrowName(style, codes.arrow, codes.arrowName, blocks)
                               : arrowName(style, StyleCode::arrow, StyleCode::arrowName, blocks),
                           builder);
    end.hasExtensionLine = !style.flag(codes.withoutExtension);
    end.hasLine = !style.flag(codes.withoutLine);
    end.extensionLine = {colourOfNumber(style.integer(StyleCode::extensionColour)),
                         builder.handles().lineType(style.handle(codes.extensionType), lineTypeByBlock),
                         weightOf(style, StyleCode::extensionWeight)};
    return end;
}

DimensionLook::TextRow textRowOf(int number) {
    constexpr int inLine = 0;
    constexpr int below = 4;
    if (number == inLine) {
        return DimensionLook::TextRow::inLine;
    }
    return number == below ? DimensionLook::TextRow::below : DimensionLook::TextRow::above;
}

/// `number` as one of the choices from 0 to `last`, or the usual one.
template <typename Choice>
Choice choiceOf(int number, Choice last, Choice usual) {
    return number >= 0 && number <= static_cast<int>(last) ? static_cast<Choice>(number) : usual;
}

/// How a style fits text and arrow heads between the extension lines.
void setFit(const StyleValues& style, DimensionLook& look) {
    using Move = DimensionLook::TextMove;
    using Place = DimensionLook::TextPlace;
    using Fit = DimensionLook::Fit;
    look.textMove = choiceOf(style.integer(StyleCode::textMoves), Move::freely, Move::besideLine);
    look.textPlace = choiceOf(style.integer(StyleCode::textPlace), Place::aboveSecond, Place::middle);
    look.fit = choiceOf(style.integer(StyleCode::fit), Fit::textOrHeads, Fit::textOrHeads);
    look.textForcedInside = style.flag(StyleCode::textForcedInside);
    look.noLineOutside = look.textForcedInside && style.flag(StyleCode::noLineOutside);
}

/// What stands behind or around a text.
void setBackground(const StyleValues& style, MText& text) {
    constexpr int filledWithPaper = 1;
    constexpr int filledWithColour = 2;
    const int fill = style.integer(StyleCode::textFill);
    const double gap = style.real(StyleCode::gap);
    text.masked = fill == filledWithPaper || fill == filledWithColour;
    text.framed = gap < 0.0;
    if (text.masked || text.framed) {
        text.border = std::abs(gap) * style.scale();
    }
    if (fill == filledWithColour) {
        text.maskColour = colourOfNumber(style.integer(StyleCode::textFillColour));
    }
}

} // namespace

Colour colourOfNumber(int number) {
    RecordHeader header;
    header.colourNumber = number;
    return header.colour();
}

DimensionLook lookOf(const StyleValues& style, const BlockRecords& blocks, DrawingBuilder& builder) {
    DimensionLook look;
    for (size_t i = 0; i < look.ends.size(); ++i) {
        look.ends[i] = endOf(endCodes[i], style, blocks, builder);
    }
    look.line = {colourOfNumber(style.integer(StyleCode::lineColour)),
                 builder.handles().lineType(style.handle(StyleCode::lineType), lineTypeByBlock),
                 weightOf(style, StyleCode::lineWeight)};
    look.textColour = colourOfNumber(style.integer(StyleCode::textColour));
    look.arrowSize = style.length(StyleCode::arrowSize);
    look.tickSize = style.length(StyleCode::tickSize);
    look.lineBeyond = style.length(StyleCode::lineBeyond);
    look.extensionGap = style.length(StyleCode::extensionGap);
    look.extensionBeyond = style.length(StyleCode::extensionBeyond);
    look.extensionLength = style.flag(StyleCode::fixedExtensions) ? style.length(StyleCode::extensionLength) : 0.0;
    look.gap = std::abs(style.real(StyleCode::gap)) * style.scale();
    look.centreMark = style.real(StyleCode::centreMark) * style.scale();
    look.textRise = style.real(StyleCode::textRise);
    look.textRow = textRowOf(style.integer(StyleCode::textRow));
    look.levelInside = style.flag(StyleCode::levelInside);
    look.levelOutside = style.flag(StyleCode::levelOutside);
    look.lineInside = style.flag(StyleCode::lineInside);
    setFit(style, look);
    return look;
}

MText annotationText(const std::string& markup, const StyleValues& style, DrawingBuilder& builder) {
    MText text;
    text.style = builder.handles().textStyle(style.handle(StyleCode::textStyle));
    const TextStyle& look = builder.drawing().textStyles[text.style];
    const double height = look.height > 0.0 ? look.height : style.length(StyleCode::textHeight);
    text.height = height > 0.0 ? height : StyleValues().real(StyleCode::textHeight);
    text.attachment = middleOfText;
    setBackground(style, text);
    CharacterFormat format;
    format.height = text.height;
    format.widthFactor = look.widthFactor;
    format.obliqueAngle = look.obliqueAngle;
    text.paragraphs = paragraphsOf(markup, format, builder.decoder());
    return text;
}

} // namespace kelplot
