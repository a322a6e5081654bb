// SPDX-License-Identifier: BSD-3-Clause
#include "port/format/IntegerText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "port/UpperCase.h"

namespace KelDriver::Internal {

namespace {

struct BaseForm {
    int radix;
    std::string_view lead;
};

/// In the order of IntegerBase.
constexpr BaseForm baseForms[] = {{10, ""}, {8, "0"}, {16, "0x"}, {16, "0x"}};

} // namespace

std::string signedText(int32_t value, bool showSign) {
    std::string text = std::to_string(value);
    if (showSign && value >= 0) {
        text.insert(0, 1, '+');
    }
    return text;
}

std::string unsignedText(uint64_t value, IntegerBase base, bool showBase) {
    const BaseForm& form = baseForms[static_cast<size_t>(base)];
    std::array<char, 24> text; // the longest lead, and 64 bits in octal
    char* const digits =
        showBase && value != 0 ? std::copy(form.lead.begin(), form.lead.end(), text.data()) : text.data();
    char* const end = std::to_chars(digits, text.data() + text.size(), value, form.radix).ptr;
    if (base == IntegerBase::UpperHex) {
        std::transform(text.data(), end, text.data(), upperCase);
    }
    return std::string(text.data(), end);
}

} // namespace KelDriver::Internal
