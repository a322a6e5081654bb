// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>

#include "keldriver/Paper.h"

namespace KelDriver::Internal {

/// How a capability code that lists papers describes each paper.
struct PaperAnswer {
    unsigned short code;
    size_t size; ///< bytes for each paper
    void (*write)(const PaperSize& paper, char* entry);

    /// The entry of an index in a driver's buffer.
    char* entry(char* output, int index) const { return output + static_cast<size_t>(index) * size; }
};

/// The whole records, the only list that is answered from compact records and that makes a binary file.
constexpr unsigned short wholePapersCode = 19;

/// Null when a code lists no papers.
const PaperAnswer* paperAnswerFor(unsigned short code);

} // namespace KelDriver::Internal
