// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/mtext/FormatCodes.h"

#include "base/Angles.h"

#include <QByteArray>
#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>

#include "reader/GroupValue.h"
#include "reader/mtext/MarkupScan.h"

namespace kelplot {

namespace {

constexpr int colourByBlock = 0;
constexpr int largestColourNumber = 255;
constexpr int largestTrueColour = 0xFFFFFF;

// Every stretch has a copy of its font.
constexpr size_t longestFontName = 256;
constexpr size_t mostTabStops = 64;

bool hasFontExtension(std::string_view name) {
    constexpr const char* extensions[] = {".shx", ".ttf", ".ttc", ".otf", ".pfb"};
    constexpr size_t length = 4;
    return name.size() > length &&
           std::any_of(std::begin(extensions), std::end(extensions), [&](const char* extension) {
               return qstrnicmp(name.data() + (name.size() - length), extension, length) == 0;
           });
}

/// The font of an argument such as "Arial|b1|i0|c0|p34" or "txt,bigfont"; nothing for that of the style.
std::optional<FontName> fontOf(std::string_view argument, bool fileExpected) {
    const size_t bar = argument.find('|');
    const std::string_view names = argument.substr(0, bar);
    FontName font;
    font.isFile = fileExpected && bar == std::string_view::npos;
    font.name = trimmed(names);
    if (font.isFile || hasFontExtension(trimmed(names.substr(0, names.find(','))))) {
        // What follows the comma is the file of another script.
        font.name = trimmed(names.substr(0, names.find(',')));
        font.isFile = true;
    }
    font.bold = argument.find("|b1") != std::string_view::npos;
    font.italic = argument.find("|i1") != std::string_view::npos;
    return font.name.empty() || font.name.size() > longestFontName ? std::nullopt : std::optional<FontName>(font);
}

/// A true colour has its red part in the lowest byte here.
Colour trueColourOf(double number) {
    const auto bits = static_cast<uint32_t>(std::clamp<double>(number, 0.0, largestTrueColour));
    return {Colour::Kind::trueColour, redBlueExchanged(bits)};
}

Colour colourOfNumber(double number) {
    if (number >= colourByBlock + 1 && number <= largestColourNumber) {
        return {Colour::Kind::index, static_cast<uint32_t>(number)};
    }
    return {number == colourByBlock ? Colour::Kind::byBlock : Colour::Kind::byLayer, 0};
}

void setFactor(const MarkupNumber& number, double& value) {
    const double changed = saneReal(number.relative ? value * number.value : number.value);
    if (changed > 0.0) {
        value = changed;
    }
}

CharacterFormat::Level levelOf(double number) {
    if (number >= 2.0) {
        return CharacterFormat::Level::top;
    }
    return number >= 1.0 ? CharacterFormat::Level::middle : CharacterFormat::Level::bottom;
}

/// Codes without an argument.
bool applyLineCode(char code, TextLines& lines) {
    const struct {
        char begin;
        char end;
        bool* line;
    } codes[] = {{'L', 'l', &lines.under}, {'O', 'o', &lines.over}, {'K', 'k', &lines.through}};
    const auto* const found = std::find_if(std::begin(codes), std::end(codes), [code](const auto& entry) {
        return code == entry.begin || code == entry.end;
    });
    if (found == std::end(codes)) {
        return false;
    }
    *found->line = code == found->begin;
    return true;
}

bool isNumberCode(char code) {
    return code != '\0' && std::string_view("CcHWTQA").find(code) != std::string_view::npos;
}

void applyNumberCode(char code, const MarkupNumber& number, CharacterFormat& format) {
    switch (code) {
    case 'C':
        format.colour = colourOfNumber(number.value);
        break;
    case 'c':
        format.colour = trueColourOf(number.value);
        break;
    case 'H':
        setFactor(number, format.height);
        break;
    case 'W':
        setFactor(number, format.widthFactor);
        break;
    case 'T':
        setFactor(number, format.tracking);
        break;
    case 'Q':
        format.obliqueAngle = radiansFromDegrees(number.value);
        break;
    default: // 'A'
        format.level = levelOf(number.value);
        break;
    }
}

/// Takes the tab stops off the start of `argument`; those for centred and right-aligned text count as places too.
std::vector<double> takeTabStops(std::string_view& argument, double height) {
    std::vector<double> stops;
    do {
        takeCharacter(argument, 'c') || takeCharacter(argument, 'r');
        const auto stop = takeNumber(argument);
        if (stop && stops.size() < mostTabStops) {
            stops.push_back(*stop * height);
        }
    } while (takeCharacter(argument, ','));
    std::sort(stops.begin(), stops.end());
    return stops;
}

Paragraph::Alignment alignmentOf(char letter) {
    using Alignment = Paragraph::Alignment;
    constexpr struct {
        char letter;
        Alignment alignment;
    } alignments[] = {{'l', Alignment::left},
                      {'c', Alignment::center},
                      {'r', Alignment::right},
                      {'j', Alignment::justified},
                      {'d', Alignment::distributed}};
    for (const auto& entry : alignments) {
        if (entry.letter == letter) {
            return entry.alignment;
        }
    }
    return Alignment::byText;
}

} // namespace

bool applyFormatCode(char code, std::string_view& rest, CharacterFormat& format) {
    if (code == 'f' || code == 'F') {
        const auto argument = takeWords(rest);
        if (argument) {
            format.font = fontOf(*argument, code == 'F');
        }
        return argument.has_value();
    }
    if (!isNumberCode(code)) {
        return applyLineCode(code, format.lines);
    }
    if (const auto number = takeArgument(rest)) {
        applyNumberCode(code, *number, format);
        return true;
    }
    return takeCharacter(rest, ';');
}

void applyParagraphCode(std::string_view argument, double height, Paragraph& paragraph) {
    while (!argument.empty()) {
        const char key = argument.front();
        argument.remove_prefix(1);
        double* const length = key == 'i'   ? &paragraph.firstIndent
                               : key == 'l' ? &paragraph.leftIndent
                               : key == 'r' ? &paragraph.rightIndent
                                            : nullptr;
        if (length != nullptr) {
            // Without a number the usual one is meant.
            *length = takeNumber(argument).value_or(0.0) * height;
        } else if (key == 't') {
            paragraph.tabStops = std::make_shared<const std::vector<double>>(takeTabStops(argument, height));
        } else if (key == 'q' && !argument.empty()) {
            paragraph.alignment = alignmentOf(argument.front());
            argument.remove_prefix(1);
        }
    }
}

} // namespace kelplot
