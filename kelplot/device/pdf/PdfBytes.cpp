// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfBytes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace kelplot {
namespace {

constexpr size_t longestNumber = 32;
/// The largest number that is written, times ten to its decimals.
constexpr double largest = 9e15;

/// Writes the digits of a number so that they end at `end`, and returns where they begin.
char* digitsBefore(char* end, uint64_t number) {
    for (; number > UINT32_MAX; number /= 10) {
        *--end = static_cast<char>('0' + number % 10);
    }
    auto rest = static_cast<uint32_t>(number); // divides in half the time
    do {
        *--end = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    return end;
}

} // namespace

char* PdfBytes::room(size_t bytes) {
    constexpr size_t least = 256;
    if (m_used + bytes > m_bytes.size()) {
        m_bytes.resize(std::max({least, m_used + bytes, m_bytes.size() * 2}));
    }
    return m_bytes.data() + m_used;
}

PdfBytes& PdfBytes::operator<<(std::string_view text) {
    if (!text.empty()) {
        std::memcpy(room(text.size()), text.data(), text.size());
        m_used += text.size();
    }
    return *this;
}

PdfBytes& PdfBytes::operator<<(char letter) {
    *room(1) = letter;
    ++m_used;
    return *this;
}

PdfBytes& PdfBytes::operator<<(int64_t number) {
    fixed(number, 0);
    return *this;
}

/// Writes a number that is `number` divided by ten to the `decimals`.
void PdfBytes::fixed(int64_t number, int decimals) {
    char digits[longestNumber];
    char* const end = digits + longestNumber;
    char* begin = end;
    auto rest = static_cast<uint64_t>(std::abs(number));
    for (; decimals > 0 && rest % 10 == 0; --decimals) { // zeros at the end say nothing
        rest /= 10;
    }
    if (decimals > 0) {
        for (; decimals > 0; --decimals, rest /= 10) {
            *--begin = static_cast<char>('0' + rest % 10);
        }
        *--begin = '.';
    }
    if (rest != 0 || begin == end) {
        begin = digitsBefore(begin, rest);
    }
    if (number < 0) {
        *--begin = '-';
    }
    *this << std::string_view(begin, static_cast<size_t>(end - begin));
}

PdfBytes& PdfBytes::coordinate(double value) {
    return decimal(value, 1);
}

PdfBytes& PdfBytes::decimal(double value, int decimals) {
    constexpr double powers[] = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10};
    const double scaled = std::isfinite(value) ? value * powers[decimals] : 0.0;
    fixed(std::lrint(std::clamp(scaled, -largest, largest)), decimals);
    return *this << ' ';
}

PdfBytes& PdfBytes::hex4(uint32_t number) {
    constexpr char digits[] = "0123456789ABCDEF";
    char* const begin = room(4);
    for (int i = 0; i < 4; ++i) {
        begin[i] = digits[number >> (12 - 4 * i) & 0xFU];
    }
    m_used += 4;
    return *this;
}

} // namespace kelplot
