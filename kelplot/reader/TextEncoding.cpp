// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/TextEncoding.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>
#include <algorithm>
#include <charconv>
#include <optional>

namespace kelplot {

namespace {

struct KnownPage {
    std::string_view number;
    const char* codec;
    bool multiByte = false;
};
constexpr KnownPage knownPages[] = {
    {"437", "IBM437"},        {"850", "IBM850"},          {"852", "IBM852"},        {"855", "IBM855"},
    {"857", "IBM857"},        {"860", "IBM860"},          {"861", "IBM861"},        {"863", "IBM863"},
    {"864", "IBM864"},        {"865", "IBM865"},          {"866", "IBM866"},        {"869", "IBM869"},
    {"874", "TIS-620"},       {"932", "Shift_JIS", true}, {"936", "GB18030", true}, {"949", "EUC-KR", true},
    {"950", "Big5", true},    {"1250", "windows-1250"},   {"1251", "windows-1251"}, {"1252", "windows-1252"},
    {"1253", "windows-1253"}, {"1254", "windows-1254"},   {"1255", "windows-1255"}, {"1256", "windows-1256"},
    {"1257", "windows-1257"}, {"1258", "windows-1258"},   {"65001", "UTF-8", true},
};

/// By the digit of the escape, from 1. The fourth is Johab, which nothing here decodes.
constexpr const char* escapeCodecs[] = {"Shift_JIS", "Big5", "EUC-KR", "", "GB18030"};

constexpr std::string_view firstUnicodeVersion = "AC1021";
constexpr std::string_view unicodeEscape = "\\U+";
constexpr std::string_view multiByteEscape = "\\M+";
constexpr std::string_view doubleBackslash = "\\\\";
constexpr size_t escapeDigits = 4;

bool isPlain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return c != '\\' && (c & 0x80) == 0; });
}

QByteArray viewOf(std::string_view bytes) {
    return QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
}

std::string convert(std::string_view bytes, QTextCodec* codec) {
    QTextCodec* const used = codec != nullptr ? codec : QTextCodec::codecForName("windows-1252");
    return used != nullptr ? used->toUnicode(viewOf(bytes)).toStdString() : std::string(bytes);
}

/// Control characters show nothing, and a null would end the text for whoever draws it.
QString withoutControls(QString text) {
    auto* const end = std::remove_if(text.begin(), text.end(),
                                     [](QChar character) { return character.category() == QChar::Other_Control; });
    text.truncate(static_cast<int>(end - text.begin()));
    return text;
}

std::optional<unsigned> hexAt(std::string_view text, size_t offset) {
    const std::string_view digits = text.substr(std::min(offset, text.size()), escapeDigits);
    unsigned value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (digits.size() < escapeDigits || result.ptr != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

/// The characters that the escape at the start of `text` stands for; takes it off `text`.
std::optional<QString> takeEscape(std::string_view& text) {
    if (text.substr(0, unicodeEscape.size()) == unicodeEscape) {
        const auto unit = hexAt(text, unicodeEscape.size());
        if (unit) {
            text.remove_prefix(unicodeEscape.size() + escapeDigits);
            return withoutControls(QChar(static_cast<ushort>(*unit)));
        }
    }
    const size_t pageAt = multiByteEscape.size();
    if (text.substr(0, pageAt) != multiByteEscape || text.size() <= pageAt) {
        return std::nullopt;
    }
    const auto character = hexAt(text, pageAt + 1);
    QTextCodec* const codec = codePageOfEscape(text[pageAt]).codec;
    if (!character || codec == nullptr) {
        return std::nullopt;
    }
    text.remove_prefix(pageAt + 1 + escapeDigits);
    const char bytes[] = {static_cast<char>(*character >> 8), static_cast<char>(*character & 0xFF)};
    return withoutControls(codec->toUnicode(bytes, 2));
}

/// UTF-16 halves of one character stand in two escapes, so the text is put together in UTF-16.
std::string replaceEscapes(std::string_view utf8, bool keepsDouble) {
    QString result;
    while (!utf8.empty()) {
        const size_t plain = std::min(utf8.find('\\'), utf8.size());
        result += QString::fromUtf8(viewOf(utf8.substr(0, plain)));
        utf8.remove_prefix(plain);
        if (const auto characters = takeEscape(utf8)) {
            result += *characters;
        } else if (!utf8.empty()) {
            const bool twice = keepsDouble && utf8.substr(0, 2) == doubleBackslash;
            const size_t count = twice ? 2 : 1;
            result += QString(static_cast<int>(count), QLatin1Char('\\'));
            utf8.remove_prefix(count);
        }
    }
    return result.toStdString();
}

} // namespace

CodePage codePageOfDrawing(std::string_view name) {
    const size_t digits = name.find_first_of("0123456789");
    const std::string_view number = digits == std::string_view::npos ? std::string_view() : name.substr(digits);
    const auto* const page = std::find_if(std::begin(knownPages), std::end(knownPages),
                                          [&](const KnownPage& candidate) { return candidate.number == number; });
    if (page != std::end(knownPages)) {
        return {QTextCodec::codecForName(page->codec), page->multiByte};
    }
    return {QTextCodec::codecForName(QByteArray(name.data(), static_cast<int>(name.size()))), true};
}

CodePage codePageOfEscape(char digit) {
    if (digit < '1' || digit > '5') {
        return {};
    }
    return {QTextCodec::codecForName(escapeCodecs[digit - '1']), true};
}

bool isUtf8(std::string_view bytes) {
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), static_cast<int>(bytes.size()), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

bool outweighs(std::string_view utf8, const CodePage& page) {
    // A single pair may be a capital letter and a sign; no word of such a page is made of pairs like that. Two
    // characters of two bytes each do look like UTF-8 now and then.
    constexpr int fewestBytes = 2;
    const auto following =
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; });
    return page.codec == nullptr || (!page.multiByte && following >= fewestBytes);
}

void TextEncoding::setVersion(std::string_view version) {
    // Versions before this numbering ("AC2.10") would sort after it.
    const bool numbered = version.substr(0, 3) == firstUnicodeVersion.substr(0, 3);
    m_unicode = numbered && version.size() == firstUnicodeVersion.size() && version >= firstUnicodeVersion;
}

void TextEncoding::setCodePage(std::string_view name) {
    m_codePageName = name;
    m_codePage = codePageOfDrawing(name);
}

std::string TextEncoding::unknownCodePage() const {
    return m_unicode || m_codePage.codec != nullptr ? std::string() : decode(m_codePageName);
}

std::string TextEncoding::decode(std::string_view bytes) const {
    if (isPlain(bytes)) {
        return std::string(bytes);
    }
    const std::string utf8 = decodeBytes(bytes);
    return utf8.find('\\') == std::string::npos ? utf8 : replaceEscapes(utf8, false);
}

std::string TextEncoding::decodeMarkup(std::string_view bytes) const {
    const std::string utf8 = isPlain(bytes) ? std::string(bytes) : decodeBytes(bytes);
    const bool escapes =
        utf8.find(unicodeEscape) != std::string::npos || utf8.find(multiByteEscape) != std::string::npos;
    return escapes ? replaceEscapes(utf8, true) : utf8;
}

std::string TextEncoding::decodeByte(unsigned char byte) const {
    const char text = static_cast<char>(byte);
    const std::string character = convert({&text, 1}, m_codePage.multiByte ? nullptr : m_codePage.codec);
    return withoutControls(QString::fromStdString(character)).toStdString();
}

std::string TextEncoding::decodeBytes(std::string_view bytes) const {
    // Drawings lie about both: newer ones hold bytes of a code page, older ones UTF-8.
    if (isUtf8(bytes) && (m_unicode || outweighs(bytes, m_codePage))) {
        return std::string(bytes);
    }
    return convert(bytes, m_codePage.codec);
}

} // namespace kelplot
