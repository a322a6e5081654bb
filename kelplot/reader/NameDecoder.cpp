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
constexpr std::size_t escapeDigits = 4;

/// Code pages that are not simply Windows' own, by their number.
struct CodePage {
    std::string_view number;
    const char* codec;
};
constexpr CodePage codePages[] = {
    {"437", "IBM437"},        {"850", "IBM850"},        {"852", "IBM852"},        {"855", "IBM855"},
    {"857", "IBM857"},        {"860", "IBM860"},        {"861", "IBM861"},        {"863", "IBM863"},
    {"864", "IBM864"},        {"865", "IBM865"},        {"866", "IBM866"},        {"869", "IBM869"},
    {"874", "TIS-620"},       {"932", "Shift_JIS"},     {"936", "GB18030"},       {"949", "EUC-KR"},
    {"950", "Big5"},          {"1361", "Johab"},        {"1250", "windows-1250"}, {"1251", "windows-1251"},
    {"1252", "windows-1252"}, {"1253", "windows-1253"}, {"1254", "windows-1254"}, {"1255", "windows-1255"},
    {"1256", "windows-1256"}, {"1257", "windows-1257"}, {"1258", "windows-1258"},
};

/// The code page of a \M+N escape, by its digit.
constexpr const char* multiByteCodecs[] = {nullptr, "Shift_JIS", "Big5", "EUC-KR", "Johab", "GB18030"};

bool isPlain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return c != '\\' && (c & 0x80) == 0; });
}

QByteArray viewOf(std::string_view bytes) {
    return QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
}

bool isUtf8(std::string_view bytes) {
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), static_cast<int>(bytes.size()), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

std::string convert(std::string_view bytes, QTextCodec* codec) {
    QTextCodec* const used = codec != nullptr ? codec : QTextCodec::codecForName("windows-1252");
    return used != nullptr ? used->toUnicode(viewOf(bytes)).toStdString() : std::string(bytes);
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
            return QString(QChar(static_cast<ushort>(*unit)));
        }
    }
    const std::size_t pageAt = multiByteEscape.size();
    if (text.substr(0, pageAt) != multiByteEscape || text.size() <= pageAt || text[pageAt] < '1' ||
        text[pageAt] > '5') {
        return std::nullopt;
    }
    const auto character = hexAt(text, pageAt + 1);
    QTextCodec* const codec = QTextCodec::codecForName(multiByteCodecs[text[pageAt] - '0']);
    if (!character || codec == nullptr) {
        return std::nullopt;
    }
    text.remove_prefix(pageAt + 1 + escapeDigits);
    const char bytes[] = {static_cast<char>(*character >> 8), static_cast<char>(*character & 0xFF)};
    return codec->toUnicode(bytes, 2);
}

/// UTF-16 halves of one character stand in two escapes, so the text is put together in UTF-16.
std::string replaceEscapes(std::string_view utf8) {
    QString result;
    while (!utf8.empty()) {
        const std::size_t plain = std::min(utf8.find('\\'), utf8.size());
        result += QString::fromUtf8(viewOf(utf8.substr(0, plain)));
        utf8.remove_prefix(plain);
        if (const auto characters = takeEscape(utf8)) {
            result += *characters;
        } else if (!utf8.empty()) {
            result += QLatin1Char('\\');
            utf8.remove_prefix(1);
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
    const std::size_t digits = name.find_first_of("0123456789");
    const std::string_view number = digits == std::string_view::npos ? std::string_view() : name.substr(digits);
    const auto* const page = std::find_if(std::begin(codePages), std::end(codePages),
                                          [&](const CodePage& candidate) { return candidate.number == number; });
    m_codec = QTextCodec::codecForName(page != std::end(codePages) ? QByteArray(page->codec) : viewOf(name));
}

std::string NameDecoder::decode(std::string_view bytes) const {
    if (isPlain(bytes)) {
        return std::string(bytes);
    }
    const std::string utf8 = decodeBytes(bytes);
    return utf8.find('\\') == std::string::npos ? utf8 : replaceEscapes(utf8);
}

std::string NameDecoder::decodeBytes(std::string_view bytes) const {
    // Without a code page, bytes that are sound UTF-8 hardly mean anything else.
    if ((m_unicode || m_codec == nullptr) && isUtf8(bytes)) {
        return std::string(bytes);
    }
    return convert(bytes, m_codec);
}

} // namespace kelplot
