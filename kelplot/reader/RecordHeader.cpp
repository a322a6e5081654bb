// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/RecordHeader.h"

#include <algorithm>
#include <cstdlib>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

/// The heaviest line that drawings know, in hundredths of a millimetre.
constexpr int heaviestLine = 211;

double lineTypeScaleOf(double scale) {
    return scale > 0.0 ? scale : 1.0;
}

/// The kinds of opacity, in the highest byte of the number that states one.
constexpr int opacityOfBlock = 1;
constexpr int ownOpacity = 2;

/// The plot style of an entity that does not name its own.
PlotStyleIndex plotStyleOf(int rule) {
    constexpr int byBlock = 1;
    constexpr int usual = 2;
    if (rule == usual) {
        return 0;
    }
    return rule == byBlock ? plotStyleByBlock : plotStyleByLayer;
}

} // namespace

Opacity opacityOf(int number) {
    switch (number >> 24) {
    case opacityOfBlock:
        return opacityByBlock;
    case ownOpacity:
        return static_cast<Opacity>(number & 0xFF);
    default:
        return opacityByLayer;
    }
}

LineWeight lineWeightOf(int number) {
    if (number < lineWeightDefault) {
        return lineWeightByLayer;
    }
    return static_cast<LineWeight>(std::min(number, heaviestLine));
}

void RecordHeader::takeOfObject(const Group& group) {
    switch (group.code) {
    case 5: // the first; objects use the code for further handles
        handle = handle == 0 ? toHandle(group.value) : handle;
        break;
    case 102:
        m_inExtension = trimmed(group.value) == "{ACAD_XDICTIONARY";
        break;
    case 360:
        extensionDictionary = m_inExtension ? toHandle(group.value) : extensionDictionary;
        break;
    default:
        break;
    }
}

void RecordHeader::take(const Group& group, DrawingBuilder& builder) {
    switch (group.code) {
    case 6:
        attributes.lineType = builder.lineType(trimmed(group.value));
        break;
    case 8:
        attributes.layer = builder.layer(trimmed(group.value));
        break;
    case 48:
        attributes.lineTypeScale = lineTypeScaleOf(toReal(group.value));
        break;
    case 60:
        attributes.visible = toInteger(group.value) == 0;
        break;
    case 62:
        colourNumber = toInteger(group.value);
        break;
    case 67:
        inPaperSpace = toInteger(group.value) != 0;
        break;
    case 210:
        extrusion.x = toReal(group.value);
        break;
    case 220:
        extrusion.y = toReal(group.value);
        break;
    case 230:
        extrusion.z = toReal(group.value);
        break;
    case 370:
        attributes.lineWeight = lineWeightOf(toInteger(group.value));
        break;
    case 380:
        attributes.plotStyle = plotStyleOf(toInteger(group.value));
        break;
    case 390:
        attributes.plotStyle = builder.plotStyle(toHandle(group.value));
        break;
    case 420:
        trueColour = toInteger(group.value) & 0xFFFFFF;
        break;
    case 440:
        attributes.opacity = opacityOf(toInteger(group.value));
        break;
    default:
        takeOfObject(group);
        break;
    }
}

Colour RecordHeader::colour() const {
    if (trueColour != noTrueColour) {
        return {Colour::Kind::trueColour, static_cast<uint32_t>(trueColour)};
    }
    if (colourNumber == colourByBlock) {
        return {Colour::Kind::byBlock, 0};
    }
    constexpr int largestColourNumber = 255;
    if (colourNumber < -largestColourNumber || colourNumber > largestColourNumber) {
        return {Colour::Kind::byLayer, 0};
    }
    return {Colour::Kind::index, static_cast<uint32_t>(std::abs(colourNumber))};
}

RecordHeader withColour(const RecordHeader& header, int colour) {
    constexpr unsigned byLayer = 0xC0;
    constexpr unsigned trueColour = 0xC2;
    constexpr unsigned numbered = 0xC3;
    RecordHeader result = header;
    const unsigned kind = static_cast<unsigned>(colour) >> 24;
    if (kind == byLayer || kind == numbered) {
        result.trueColour = RecordHeader::noTrueColour;
        result.colourNumber = kind == byLayer ? RecordHeader::colourByLayer : colour & 0xFF;
    } else if (kind == trueColour) {
        result.trueColour = colour & 0xFFFFFF;
    }
    return result;
}

} // namespace kelplot
