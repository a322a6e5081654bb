// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace KelDriver::Internal {

/// The capital of a Latin letter, in every locale; any other character as it is.
constexpr char upperCase(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

} // namespace KelDriver::Internal
