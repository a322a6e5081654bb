// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace kelplot {

/// A drawing file that is open and looks readable.
struct DrawingFile {
    std::ifstream stream; ///< at the first byte
    std::uintmax_t size = 0;
    bool isBinary = false; ///< else it is in text form
};

/// Opens `path`, or a copy of standard input for "-", or throws `ReadError`: `cannotOpen` where there is no readable
/// regular file, and `notADrawing` where the file is empty or of another known kind.
DrawingFile openDrawingFile(const std::string& path);

} // namespace kelplot
