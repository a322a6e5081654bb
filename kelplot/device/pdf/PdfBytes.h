// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kelplot {

/// Bytes of a PDF document that grow at their end: words, and numbers with no more digits than they need.
class PdfBytes {
public:
    const char* data() const { return m_bytes.data(); }
    size_t size() const { return m_used; }
    bool isEmpty() const { return m_used == 0; }
    std::string_view view() const { return {m_bytes.data(), m_used}; }
    void clear() { m_used = 0; }
    /// Takes memory for so many bytes in all, before they come.
    void reserve(size_t bytes) { m_bytes.resize(std::max(bytes, m_bytes.size())); }

    PdfBytes& operator<<(std::string_view text);
    PdfBytes& operator<<(char letter);
    PdfBytes& operator<<(int64_t number);
    PdfBytes& operator<<(int number) { return *this << int64_t{number}; }

    /// A page coordinate and a space, to a tenth of the page unit.
    PdfBytes& coordinate(double value);
    /// A number and a space, with at most this many decimals. What is not finite becomes 0.
    PdfBytes& decimal(double value, int decimals);
    /// A number of four hexadecimal digits.
    PdfBytes& hex4(uint32_t number);

private:
    char* room(size_t bytes);
    void fixed(int64_t number, int decimals);

    std::vector<char> m_bytes; ///< larger than what is used
    size_t m_used = 0;
};

} // namespace kelplot
