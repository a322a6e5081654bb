// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace kelplot {

/// What is wrong with a drawing's content; the reader adds the file's name.
class DrawingFault : public std::runtime_error {
public:
    explicit DrawingFault(const std::string& text) : std::runtime_error(text) {}
    DrawingFault(std::size_t line, const std::string& text)
        : std::runtime_error("line " + std::to_string(line) + ": " + text) {}
};

} // namespace kelplot
