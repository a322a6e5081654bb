// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/mtext/MTextMarkup.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "reader/mtext/FormatCodes.h"
#include "reader/mtext/MarkupScan.h"
#include "reader/mtext/TextCodes.h"

namespace kelplot {

namespace {

/// Braces within braces; deeper ones change nothing.
constexpr size_t mostBraces = 64;
constexpr std::string_view marks = "\\{}^%\t";
constexpr std::string_view hardBlank = "\u00A0";

struct Stack {
    std::string upper;
    std::string lower;
    std::optional<TextStack::Divider> divider; ///< nothing: it is no stack after all
};

std::optional<TextStack::Divider> dividerOf(char mark) {
    switch (mark) {
    case '^':
        return TextStack::Divider::none;
    case '/':
        return TextStack::Divider::bar;
    case '#':
        return TextStack::Divider::slash;
    default:
        return std::nullopt;
    }
}

/// Whether `rest`, which follows a backslash, begins another paragraph or column.
bool endsParagraph(std::string_view rest) {
    return !rest.empty() && (rest.front() == 'P' || rest.front() == 'N');
}

/// Reads text word by word into paragraphs.
class MarkupParser {
public:
    MarkupParser(std::string_view markup, const CharacterFormat& start, const TextEncoding& decoder)
        : m_rest(markup), m_decoder(decoder), m_height(start.height), m_format(start) {}

    std::vector<Paragraph> parse();

private:
    void takePlain();
    void takeMark();
    void takeBackslash();
    void takeControl(char control);
    void takeParagraphCode();
    void takeStack();
    std::optional<Stack> readStack();

    void openBrace();
    void closeBrace();
    void addTab();
    void finishSpan();
    void finishParagraph(bool columnBreak);

    std::string_view m_rest;
    /// No stack that begins with more than this left has an end: one search has shown it, and need not be repeated.
    size_t m_leftWithoutStacks = std::numeric_limits<size_t>::max();
    const TextEncoding& m_decoder;
    const double m_height; ///< of the whole text, the measure of indents
    CharacterFormat m_format;
    std::vector<CharacterFormat> m_outerFormats;
    size_t m_ignoredBraces = 0;
    std::string m_span;
    Paragraph m_paragraph;
    std::vector<Paragraph> m_paragraphs;
};

std::vector<Paragraph> MarkupParser::parse() {
    while (!m_rest.empty()) {
        takePlain();
        if (!m_rest.empty()) {
            takeMark();
        }
    }
    finishParagraph(false);
    return std::move(m_paragraphs);
}

void MarkupParser::takePlain() {
    const size_t plain = std::min(m_rest.find_first_of(marks), m_rest.size());
    m_span += m_rest.substr(0, plain);
    m_rest.remove_prefix(plain);
}

void MarkupParser::takeMark() {
    if (const auto character = takeCharacterCode(m_rest, m_decoder)) {
        m_span += *character;
        return;
    }
    if (const auto control = takeCaretCode(m_rest)) {
        takeControl(*control);
        return;
    }
    const char mark = m_rest.front();
    m_rest.remove_prefix(1);
    switch (mark) {
    case '\\':
        takeBackslash();
        break;
    case '{':
        openBrace();
        break;
    case '}':
        closeBrace();
        break;
    case '\t':
        addTab();
        break;
    default:
        m_span += mark;
        break;
    }
}

void MarkupParser::takeControl(char control) {
    if (control == '\t') {
        addTab();
    } else if (control == '\n') {
        finishParagraph(false);
    } else if (control == '^') {
        m_span += control;
    }
}

void MarkupParser::takeBackslash() {
    if (m_rest.empty()) {
        m_span += '\\';
        return;
    }
    const char code = m_rest.front();
    m_rest.remove_prefix(1);
    switch (code) {
    case '\\':
    case '{':
    case '}':
        m_span += code;
        return;
    case '~':
        m_span += hardBlank;
        return;
    case 'P':
    case 'X': // where a dimension puts the rest below its line
        finishParagraph(false);
        return;
    case 'N':
        finishParagraph(true);
        return;
    case 'S':
        takeStack();
        return;
    case 'p':
        takeParagraphCode();
        return;
    default:
        break;
    }
    CharacterFormat changed = m_format;
    if (applyFormatCode(code, m_rest, changed)) {
        finishSpan();
        m_format = std::move(changed);
    } else {
        m_span += '\\';
        m_span += code;
    }
}

void MarkupParser::takeParagraphCode() {
    if (const auto argument = takeWords(m_rest)) {
        applyParagraphCode(*argument, m_height, m_paragraph);
    } else {
        m_span += "\\p";
    }
}

/// The stack up to its semicolon; nothing where the paragraph ends without one.
std::optional<Stack> MarkupParser::readStack() {
    if (m_rest.size() > m_leftWithoutStacks) {
        return std::nullopt;
    }
    Stack stack;
    std::string_view rest = m_rest;
    while (!rest.empty()) {
        std::string& part = stack.divider ? stack.lower : stack.upper;
        if (const auto character = takeCharacterCode(rest, m_decoder)) {
            part += *character;
            continue;
        }
        const char c = rest.front();
        rest.remove_prefix(1);
        const auto divider = stack.divider ? std::nullopt : dividerOf(c);
        if (c == ';') {
            m_rest = rest;
            return stack;
        }
        if (c == '\\' && endsParagraph(rest)) {
            break;
        }
        if (divider) {
            stack.divider = divider;
            // A caret alone would make a control character of what follows, so a blank follows it.
            takeCharacter(rest, ' ');
        } else if (c == '\\' && !rest.empty()) {
            part += rest.front();
            rest.remove_prefix(1);
        } else {
            part += c;
        }
    }
    m_leftWithoutStacks = rest.size();
    return std::nullopt;
}

void MarkupParser::takeStack() {
    std::optional<Stack> stack = readStack();
    if (!stack) {
        return;
    }
    if (!stack->divider) {
        m_span += stack->upper;
        return;
    }
    finishSpan();
    m_paragraph.pieces.emplace_back(
        TextStack{std::move(stack->upper), std::move(stack->lower), *stack->divider, m_format});
}

void MarkupParser::openBrace() {
    if (m_outerFormats.size() < mostBraces) {
        m_outerFormats.push_back(m_format);
    } else {
        ++m_ignoredBraces;
    }
}

void MarkupParser::closeBrace() {
    if (m_ignoredBraces > 0) {
        --m_ignoredBraces;
    } else if (!m_outerFormats.empty()) {
        finishSpan();
        m_format = std::move(m_outerFormats.back());
        m_outerFormats.pop_back();
    }
}

void MarkupParser::addTab() {
    finishSpan();
    m_paragraph.pieces.emplace_back(TextTab{m_format});
}

void MarkupParser::finishSpan() {
    if (!m_span.empty()) {
        m_paragraph.pieces.emplace_back(TextSpan{std::move(m_span), m_format});
        m_span.clear();
    }
}

void MarkupParser::finishParagraph(bool columnBreak) {
    finishSpan();
    m_paragraph.format = m_format;
    m_paragraph.columnBreakAfter = columnBreak;
    std::vector<TextPiece> pieces = std::exchange(m_paragraph.pieces, {});
    m_paragraphs.push_back(m_paragraph); // its indents and alignment go on
    m_paragraphs.back().pieces = std::move(pieces);
}

} // namespace

std::vector<Paragraph> paragraphsOf(std::string_view markup, const CharacterFormat& start,
                                    const TextEncoding& decoder) {
    return MarkupParser(markup, start, decoder).parse();
}

} // namespace kelplot
