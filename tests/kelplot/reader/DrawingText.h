#pragma once

#include <initializer_list>
#include <string>

#include "drawing/Drawing.h"

namespace kelplot {

/// One group of a drawing as a test writes it.
struct WrittenGroup {
    int code;
    std::string value;
};

std::string groups(std::initializer_list<WrittenGroup> written);

/// A section of this name around `content`.
std::string section(const std::string& name, const std::string& content);

/// A whole drawing with nothing but these entities.
std::string drawingOf(const std::string& entities);

/// What the reader makes of a file with this text.
Drawing readText(const std::string& text);

/// Reads entities that are to come out as one. Fails the test where they do not.
Entity readOne(const std::string& entities);

} // namespace kelplot
