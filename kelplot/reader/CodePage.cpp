// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/CodePage.h"

#include <QByteArray>
#include <QTextCodec>
#include <algorithm>

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

} // namespace

CodePage codePageOfDrawing(std::string_view name) {
    const std::size_t digits = name.find_first_of("0123456789");
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

} // namespace kelplot
