// SPDX-License-Identifier: BSD-3-Clause
#include "port/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <stdexcept>

namespace KelDriver::Internal {

namespace {

constexpr uint32_t maxCodePoint = 0x10FFFF;

/// What the first byte of a sequence tells about it.
struct SequenceForm {
    uint32_t leadMask;  ///< the bits of the first byte that are fixed
    uint32_t leadBits;  ///< their values
    uint32_t firstCode; ///< the lowest code point that needs this length
    size_t length;
};

constexpr SequenceForm sequenceForms[] = {
    {0x80, 0x00, 0x0, 1},
    {0xE0, 0xC0, 0x80, 2},
    {0xF0, 0xE0, 0x800, 3},
    {0xF8, 0xF0, 0x10000, 4},
};

void appendCodePoint(std::string& utf8, uint32_t code) {
    const SequenceForm* form = std::end(sequenceForms) - 1;
    while (code < form->firstCode) {
        --form;
    }
    size_t shift = 6 * (form->length - 1);
    utf8.push_back(static_cast<char>(form->leadBits | code >> shift));
    while (shift > 0) {
        shift -= 6;
        utf8.push_back(static_cast<char>(0x80U | (code >> shift & 0x3FU)));
    }
}

/// Takes one sequence off the front of `utf8`; a value that is no code point when it is malformed.
uint32_t takeCodePoint(std::string_view& utf8) {
    constexpr uint32_t malformed = maxCodePoint + 1;
    const uint32_t lead = static_cast<unsigned char>(utf8.front());
    const auto* form =
        std::find_if(std::begin(sequenceForms), std::end(sequenceForms),
                     [lead](const SequenceForm& each) { return (lead & each.leadMask) == each.leadBits; });
    if (form == std::end(sequenceForms) || utf8.size() < form->length) {
        return malformed;
    }
    uint32_t code = lead & ~form->leadMask & 0xFFU;
    for (const char next : utf8.substr(1, form->length - 1)) {
        const uint32_t byte = static_cast<unsigned char>(next);
        if ((byte & 0xC0U) != 0x80U) {
            return malformed;
        }
        code = code << 6U | (byte & 0x3FU);
    }
    utf8.remove_prefix(form->length);
    return code < form->firstCode ? malformed : code;
}

} // namespace

std::string toUtf8(std::wstring_view wide) {
    std::string utf8(wide.size(), '\0');
    size_t next = 0; // nearly every text is plain ASCII
    for (; next < wide.size() && static_cast<uint32_t>(wide[next]) < 0x80; ++next) {
        utf8[next] = static_cast<char>(wide[next]);
    }
    utf8.resize(next);
    for (; next < wide.size(); ++next) {
        const auto code = static_cast<char32_t>(wide[next]);
        if (code > maxCodePoint) {
            throw std::range_error("wstring_convert::to_bytes");
        }
        appendCodePoint(utf8, code);
    }
    return utf8;
}

std::wstring fromUtf8(std::string_view utf8) {
    size_t plain = 0;
    while (plain < utf8.size() && static_cast<unsigned char>(utf8[plain]) < 0x80) {
        ++plain;
    }
    std::wstring wide(utf8.begin(), utf8.begin() + plain);
    utf8.remove_prefix(plain);
    while (!utf8.empty()) {
        const uint32_t code = takeCodePoint(utf8);
        if (code > maxCodePoint) {
            throw std::range_error("wstring_convert::from_bytes");
        }
        wide.push_back(static_cast<wchar_t>(code));
    }
    return wide;
}

} // namespace KelDriver::Internal
