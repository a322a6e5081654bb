// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
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

/// A place in a file, for a message.
struct FilePlace {
    enum class Unit { line, byte };

    Unit unit = Unit::line;
    std::uintmax_t number = 0; ///< of the line, from 1, or of bytes before it

    std::string text() const { return (unit == Unit::line ? "line " : "byte ") + std::to_string(number); }
};

/// What is wrong with a drawing's content; the reader adds the file's name.
class DrawingFault : public std::runtime_error {
public:
    explicit DrawingFault(const std::string& text) : std::runtime_error(text) {}
    DrawingFault(const FilePlace& place, const std::string& text) : std::runtime_error(place.text() + ": " + text) {}
};

} // namespace kelplot
