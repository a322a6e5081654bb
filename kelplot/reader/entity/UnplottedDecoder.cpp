// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/UnplottedDecoder.h"

#include <algorithm>

namespace kelplot {

namespace {

/// What a message can show of a type that may be damaged.
std::string namedType(std::string_view type) {
    constexpr size_t longest = 40;
    const auto isOfName = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
    };
    const bool sound = !type.empty() && std::all_of(type.begin(), type.end(), isOfName) && type.front() != '-';
    return sound && type.size() <= longest ? std::string(type) : "entity of a damaged type";
}

} // namespace

void UnplottedDecoder::begin(std::string_view type) {
    m_type = namedType(type);
    m_picture.clear();
}

void UnplottedDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    const ProxyGraphics::Outcome drawn = m_picture.draw(header, builder);
    if (drawn != ProxyGraphics::Outcome::whole) {
        const bool partly = drawn == ProxyGraphics::Outcome::part;
        builder.addUnplotted(header, partly ? "part of " + m_type : m_type);
    }
}

} // namespace kelplot
