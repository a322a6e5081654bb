// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "drawing/Drawing.h"

namespace kelplot {

/// Told how far a long piece of work has come, from 0 to 1.
using Progress = std::function<void(double fraction)>;

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

} // namespace kelplot
