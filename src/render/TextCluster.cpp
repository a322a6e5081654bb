// SPDX-License-Identifier: BSD-3-Clause
#include "render/TextCluster.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include <QChar>

namespace KelDriver::Internal {

namespace {

struct CodeRange {
    uint32_t first;
    uint32_t last;
};

bool contains(const CodeRange& range, uint32_t code) {
    return range.first <= code && code <= range.last;
}

template <size_t count>
bool contains(const CodeRange (&ranges)[count], uint32_t code) {
    // Rising ranges: only the first that ends at or after the code can hold it.
    const auto* range = std::lower_bound(std::begin(ranges), std::end(ranges), code,
                                         [](const CodeRange& r, uint32_t value) { return r.last < value; });
    return range != std::end(ranges) && range->first <= code;
}

constexpr CodeRange invisible[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F}, {0x00AD, 0x00AD}, {0x034F, 0x034F},   {0x061C, 0x061C},   {0x115F, 0x1160},
    {0x17B4, 0x17B5}, {0x180B, 0x180E}, {0x200B, 0x200F}, {0x2028, 0x202E},   {0x2060, 0x206F},   {0x3164, 0x3164},
    {0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}, {0xFFA0, 0xFFA0}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};

// Characters that follow their base, besides the marks that Unicode's categories identify.
constexpr CodeRange followers[] = {
    {0x200C, 0x200D},   // joiners
    {0xFF9E, 0xFF9F},   // sound marks of narrow syllables
    {0x1F3FB, 0x1F3FF}, // skin tones
    {0xE0020, 0xE007F}, // tags of regional flags
};

constexpr CodeRange joiners = {0x200C, 0x200D};
constexpr CodeRange leadingJamo[] = {{0x1100, 0x115F}, {0xA960, 0xA97C}};
constexpr CodeRange laterJamo[] = {{0x1160, 0x11FF}, {0xD7B0, 0xD7FB}};
constexpr CodeRange hangulSyllables = {0xAC00, 0xD7A3};
constexpr CodeRange flagLetters = {0x1F1E6, 0x1F1FF};
constexpr uint32_t visibleSpace = 0x1680; // the space between Ogham words is a stroke

bool isMark(uint32_t code) {
    const QChar::Category category = QChar::category(code);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_SpacingCombining ||
           category == QChar::Mark_Enclosing;
}

bool isSpace(uint32_t code) {
    return QChar::category(code) == QChar::Separator_Space && code != visibleSpace;
}

bool isHangulPair(uint32_t before, uint32_t code) {
    if (contains(laterJamo, code)) {
        return contains(leadingJamo, before) || contains(laterJamo, before) || contains(hangulSyllables, before);
    }
    return contains(leadingJamo, before) && (contains(leadingJamo, code) || contains(hangulSyllables, code));
}

/// Line ends, direction marks and the like: nothing joins them to what is beside them.
bool standsAlone(uint32_t code) {
    switch (QChar::category(code)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format:
        return contains(invisible, code) && !contains(followers, code);
    default:
        return false;
    }
}

bool joins(uint32_t before, uint32_t code) {
    if (before < 0x300 && code < 0x300) {
        return false; // most texts: nothing below the first combining mark joins
    }
    if (standsAlone(before) || (isSpace(before) && contains(joiners, code))) {
        return false; // a space is not joined to what follows it, so it stays with what is before
    }
    if (before == uint32_t{zeroWidthJoiner}) {
        return !isSpace(code) && !standsAlone(code);
    }
    return isMark(code) || contains(followers, code) || isHangulPair(before, code);
}

} // namespace

bool isBlank(wchar_t character) {
    const auto code = static_cast<char32_t>(character);
    return isSpace(code) || contains(invisible, code);
}

bool isBlank(std::wstring_view cluster) {
    return std::all_of(cluster.begin(), cluster.end(), [](wchar_t character) { return isBlank(character); });
}

size_t clusterEnd(std::wstring_view text, size_t start) {
    const auto code = [&](size_t i) {
        return static_cast<uint32_t>(text[i]);
    };
    size_t end = start + 1;
    if (end < text.size() && contains(flagLetters, code(start)) && contains(flagLetters, code(end))) {
        ++end; // two letters make one flag
    }
    while (end < text.size() && joins(code(end - 1), code(end))) {
        ++end;
    }
    return end;
}

} // namespace KelDriver::Internal
