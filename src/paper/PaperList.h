// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "keldriver/Paper.h"

namespace KelDriver::Internal {

/// The papers of a paper file, to be edited and written back.
struct PaperList {
    int count; ///< as the file states it: the number of papers, or negative
    std::vector<PaperSize> papers;
    bool isReadable; ///< else the file's content is unknown, and must not be overwritten
};

/// Reads a list as a query of whole records does, and creates a missing binary file as such a query does.
///
/// Throws `std::bad_array_new_length` when the sum of the stated count and `spare` is negative.
///
/// @param spare  places that the caller is going to add
/// @return nothing when the file cannot hold as many papers as it states: it is damaged and better left alone
std::optional<PaperList> readPaperList(const std::wstring& path, int spare);

} // namespace KelDriver::Internal
