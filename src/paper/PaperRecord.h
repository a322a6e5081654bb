// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>

#include "keldriver/Paper.h"

namespace KelDriver::Internal {

/// The two forms in which binary paper files hold a paper, both little-endian whatever the machine.
/// Compact records, which this library writes, keep 16 bits of each name character; whole records keep all 32.
constexpr size_t compactRecordSize = 160;
constexpr size_t wholeRecordSize = 288;

/// A 32-bit value of a binary paper file.
int32_t takeInt32(const char* bytes);
void putInt32(char* bytes, int32_t value);

PaperSize fromCompactRecord(const char* bytes);
PaperSize fromWholeRecord(const char* bytes);
void toCompactRecord(const PaperSize& paper, char* bytes);

} // namespace KelDriver::Internal
