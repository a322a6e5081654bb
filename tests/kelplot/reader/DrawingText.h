// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "drawing/Drawing.h"

namespace kelplot {

// Tests write the groups of a drawing as "code=value" with blanks between them. In a value, "␣" stands for a blank and
// "\xD1" for the byte of that number.

/// The lines of a file for such groups.
std::string linesOf(const std::string& groups);

/// The bytes of a file in binary form for such groups, with the codes of two bytes of newer releases or the shorter
/// ones of older releases.
enum class BinaryCodes { wide, narrow };
std::string bytesOf(const std::string& groups, BinaryCodes codes);

/// The groups of a section of this name around `content`.
std::string section(const std::string& name, const std::string& content);

/// The groups of a whole drawing with nothing but these entities.
std::string drawingOf(const std::string& entities);

/// What the reader makes of a file with these groups, or with this text.
Drawing readGroups(const std::string& groups);
Drawing readText(const std::string& text);

/// The entities of a drawing, then all else in it that is not as in an empty one, a line each; angles are in degrees.
std::vector<std::string> shown(const Drawing& drawing);

} // namespace kelplot
