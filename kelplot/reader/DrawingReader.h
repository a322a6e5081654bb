// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

#include "base/Progress.h"
#include "drawing/Drawing.h"

namespace kelplot {

/// Why a drawing could not be read; the text names the file and the reason.
class ReadError : public std::runtime_error {
public:
    enum class Reason { cannotOpen, notADrawing };

    ReadError(Reason why, const std::string& text) : std::runtime_error(text), reason(why) {}

    const Reason reason;
};

/// Reads drawings of one format.
class DrawingReader {
public:
    virtual ~DrawingReader() = default;

    /// Reads the whole drawing or throws `ReadError`. `progress` may be empty.
    virtual Drawing read(const std::string& path, const Progress& progress) = 0;
};

/// What is wrong with a drawing's content; the reader adds the file's name.
class DrawingFault : public std::runtime_error {
public:
    explicit DrawingFault(const std::string& text) : std::runtime_error(text) {}
    DrawingFault(size_t line, const std::string& text)
        : std::runtime_error("line " + std::to_string(line) + ": " + text) {}
};

} // namespace kelplot
