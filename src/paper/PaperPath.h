// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace KelDriver::Internal {

/// Throws `std::out_of_range` for a path of less than three characters, which no paper file has.
void requirePaperPath(const std::wstring& path);

/// Whether a path names a binary paper file: it ends in "PER", in any letter case.
///
/// Throws `std::out_of_range` for a path of less than three characters.
bool isBinaryPaperPath(const std::wstring& path);

/// The INI paper file that a binary paper file caches: ".ini" in place of the last four characters, if it has four.
std::wstring iniPathBeside(const std::wstring& binaryPath);

/// Whether there is anything at a path. Throws `std::range_error` when the path has no UTF-8 form.
bool pathExists(const std::wstring& path);

} // namespace KelDriver::Internal
