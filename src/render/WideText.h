// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string_view>

#include <QString>

namespace KelDriver::Internal {

/// A text of UCS-4 characters. One that marks a byte order is a character like any other; two surrogates become the
/// character that they stand for, and what lies beyond Unicode becomes U+FFFD.
QString toQString(std::wstring_view text);

} // namespace KelDriver::Internal
