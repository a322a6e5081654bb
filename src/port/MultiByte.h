// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace KelDriver::Internal {

/// Bytes of the system or of a file as the process's locale reads them, else as UTF-8: a program that has set no locale
/// must not lose what is not ASCII. Ends at the first null; empty when the bytes are neither.
std::wstring fromMultiByte(const std::string& bytes);

} // namespace KelDriver::Internal
