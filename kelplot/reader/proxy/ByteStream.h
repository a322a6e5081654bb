// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "geometry/Vec.h"

namespace kelplot {

/// Reads numbers, points and texts from bytes, the lowest byte of a number first. Past the end everything is 0.
class ByteStream {
public:
    explicit ByteStream(std::string_view bytes) : m_bytes(bytes) {}

    size_t left() const { return m_bytes.size() - m_at; }
    bool failed() const { return m_failed; }

    int32_t integer();
    /// A number that a drawing can mean.
    double real();
    Vec3 point();
    /// A text of characters of one byte each, up to the zero at its end. Texts fill words of four bytes.
    std::string text();
    /// The same with two bytes a character, in UTF-8.
    std::string wideText();

    /// How many items may follow, of so many bytes each; 0, and the stream failed, where they do not fit.
    size_t count(size_t itemSize);

private:
    std::string_view take(size_t size);

    std::string_view m_bytes;
    size_t m_at = 0;
    bool m_failed = false;
};

} // namespace kelplot
