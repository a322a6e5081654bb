// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/NameDecoder.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>
#include <algorithm>
#include <charconv>
#include <optional>

namespace kelplot {

namespace {

constexpr std::string_view firstUnicodeVersion = "AC1021";
constexpr std::string_view unicodeEscape = "\\U+";
constexpr std::string_view multiByteEscape = "\\M+";
constexpr std::string_view doubleBackslash = "\\\\";
constexpr std::size_t escapeDigits = 4;

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

/// Control characters show nothing, and a null would end the text for those who draw it.
QString withoutControls(QString text) {
    auto* const end = std::remove_if(text.begin(), text.end(),
                                     [](QChar character) { return character.category() == QChar::Other_Control; });
    text.truncate(static_cast<int>(end - text.begin()));
    return text;
}

std::optional<unsigned> hexAt(std::string_view text, std::size_t offset) {
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
    const std::size_t pageAt = multiByteEscape.size();
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
        const std::size_t plain = std::min(utf8.find('\\'), utf8.size());
        result += QString::fromUtf8(viewOf(utf8.substr(0, plain)));
        utf8.remove_prefix(plain);
        if (const auto characters = takeEscape(utf8)) {
            result += *characters;
        } else if (!utf8.empty()) {
            const bool twice = keepsDouble && utf8.substr(0, 2) == doubleBackslash;
            const std::size_t count = twice ? 2 : 1;
            result += QString(static_cast<int>(count), QLatin1Char('\\'));
            utf8.remove_prefix(count);
        }
    }
    return result.toStdString();
}

} // namespace

void NameDecoder::setVersion(std::string_view version) {
    // Versions before this numbering ("AC2.10") would sort behind it.
    const bool numbered = version.substr(0, 3) == firstUnicodeVersion.substr(0, 3);
    m_unicode = numbered && version.size() == firstUnicodeVersion.size() && version >= firstUnicodeVersion;
}

void NameDecoder::setCodePage(std::string_view name) {
    m_codePageName = name;
    m_codePage = codePageOfDrawing(name);
}

std::string NameDecoder::unknownCodePage() const {
    return m_unicode || m_codePage.codec != nullptr ? std::string() : decode(m_codePageName);
}

std::string NameDecoder::decode(std::string_view bytes) const {
    if (isPlain(bytes)) {
        return std::string(bytes);
    }
    const std::string utf8 = decodeBytes(bytes);
    return utf8.find('\\') == std::string::npos ? utf8 : replaceEscapes(utf8, false);
}

std::string NameDecoder::decodeMarkup(std::string_view bytes) const {
    const std::string utf8 = isPlain(bytes) ? std::string(bytes) : decodeBytes(bytes);
    const bool escapes =
        utf8.find(unicodeEscape) != std::string::npos || utf8.find(multiByteEscape) != std::string::npos;
    return escapes ? replaceEscapes(utf8, true) : utf8;
}

std::string NameDecoder::decodeByte(unsigned char byte) const {
    const char text = static_cast<char>(byte);
    const std::string character = convert({&text, 1}, m_codePage.multiByte ? nullptr : m_codePage.codec);
    return withoutControls(QString::fromStdString(character)).toStdString();
}

std::string NameDecoder::decodeBytes(std::string_view bytes) const {
    // Drawings lie about both: newer ones hold bytes of a code page, older ones UTF-8.
    if (isUtf8(bytes) && (m_unicode || outweighs(bytes, m_codePage))) {
        return std::string(bytes);
    }
    return convert(bytes, m_codePage.codec);
}

} // namespace kelplot
