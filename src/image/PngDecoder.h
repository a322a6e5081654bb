// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <QImage>

namespace KelDriver::Internal {

/// Decodes `size` bytes of a PNG file; null when they are none, or `size` is 0 or less.
QImage decodePng(const unsigned char* data, int size);

} // namespace KelDriver::Internal
