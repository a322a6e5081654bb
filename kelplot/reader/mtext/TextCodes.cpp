// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/mtext/TextCodes.h"

#include <algorithm>
#include <utility>

namespace kelplot {

namespace {

constexpr std::string_view marks = "%^"; ///< that codes begin with
constexpr std::string_view codeMark = "%%";
constexpr size_t codeLength = 3;
constexpr size_t numberDigits = 3;

constexpr std::string_view degreeSign = "\u00B0";
constexpr std::string_view plusMinusSign = "\u00B1";
constexpr std::string_view diameterSign = "\u00D8";

struct Sign {
    int code;
    std::string_view text;
};
constexpr Sign letterSigns[] = {{'c', diameterSign}, {'d', degreeSign}, {'p', plusMinusSign}, {'%', "%"}};
/// Numbers of signs in the stroke fonts, whatever the code page has there.
constexpr Sign numberSigns[] = {{127, degreeSign}, {128, plusMinusSign}, {129, diameterSign}};

template <size_t count>
const Sign* findSign(const Sign (&signs)[count], int code) {
    const auto* const found =
        std::find_if(std::begin(signs), std::end(signs), [&](const Sign& sign) { return sign.code == code; });
    return found == std::end(signs) ? nullptr : found;
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool startsCode(std::string_view text) {
    return text.size() >= codeLength && text.substr(0, codeMark.size()) == codeMark;
}

/// The number of three digits at the start of `text`, where it is that of a character.
std::optional<int> characterNumber(std::string_view text) {
    if (text.size() < numberDigits) {
        return std::nullopt;
    }
    int number = 0;
    for (const char digit : text.substr(0, numberDigits)) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        number = number * 10 + (digit - '0');
    }
    return number >= ' ' && number <= 0xFF ? std::optional<int>(number) : std::nullopt;
}

/// The lines that the code at the start of `text` begins or ends; null where it does not.
bool* lineOfCode(std::string_view text, TextLines& lines) {
    switch (startsCode(text) ? lowered(text[codeMark.size()]) : '\0') {
    case 'u':
        return &lines.under;
    case 'o':
        return &lines.over;
    case 'k':
        return &lines.through;
    default:
        return nullptr;
    }
}

} // namespace

std::optional<std::string> takeCharacterCode(std::string_view& text, const TextEncoding& decoder) {
    if (!startsCode(text)) {
        return std::nullopt;
    }
    if (const Sign* const sign = findSign(letterSigns, lowered(text[codeMark.size()]))) {
        text.remove_prefix(codeLength);
        return std::string(sign->text);
    }
    const std::optional<int> number = characterNumber(text.substr(codeMark.size()));
    if (!number) {
        return std::nullopt;
    }
    text.remove_prefix(codeMark.size() + numberDigits);
    const Sign* const sign = findSign(numberSigns, *number);
    return sign != nullptr ? std::string(sign->text) : decoder.decodeByte(static_cast<unsigned char>(*number));
}

std::optional<char> takeCaretCode(std::string_view& text) {
    if (text.size() < 2 || text.front() != '^') {
        return std::nullopt;
    }
    const char character = text[1];
    if (character != ' ' && (character < '@' || character > '_')) {
        return std::nullopt;
    }
    text.remove_prefix(2);
    return character == ' ' ? '^' : static_cast<char>(character - '@');
}

std::vector<TextStretch> textStretches(std::string_view text, const TextEncoding& decoder) {
    std::vector<TextStretch> stretches;
    TextStretch stretch;
    const auto finish = [&] {
        if (!stretch.text.empty()) {
            stretches.push_back({std::exchange(stretch.text, {}), stretch.lines});
        }
    };
    while (!text.empty()) {
        const size_t plain = std::min(text.find_first_of(marks), text.size());
        stretch.text += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        if (bool* const line = lineOfCode(text, stretch.lines)) {
            const bool begins = !*line;
            finish();
            *line = begins;
            text.remove_prefix(codeLength);
        } else if (const auto character = takeCharacterCode(text, decoder)) {
            stretch.text += *character;
        } else if (const auto control = takeCaretCode(text)) {
            // One line has no place for line ends and tabs.
            const bool blank = *control == '\t' || *control == '\n';
            stretch.text += *control == '^' ? "^" : (blank ? " " : "");
        } else {
            stretch.text += text.front();
            text.remove_prefix(1);
        }
    }
    finish();
    return stretches;
}

} // namespace kelplot
