// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace kelplot {

/// The number in bytes of which the lowest comes first, whatever the machine's own order; 0 without any.
template <typename Number>
Number fromLittleEndian(std::string_view bytes) {
    std::uint64_t bits = 0;
    for (size_t i = bytes.size(); i > 0; --i) {
        bits = bits << 8 | static_cast<unsigned char>(bytes[i - 1]);
    }
    if constexpr (std::is_floating_point_v<Number>) {
        static_assert(sizeof(Number) == sizeof(bits));
        Number number = 0.0;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    } else {
        return static_cast<Number>(bits);
    }
}

} // namespace kelplot
