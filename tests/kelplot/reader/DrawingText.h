// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "drawing/Drawing.h"

namespace kelplot {

// Tests write the groups of a drawing as "code=value" with blanks between them.

/// The lines of a file for such groups.
std::string linesOf(const std::string& groups);

/// The groups of a section of this name around `content`.
std::string section(const std::string& name, const std::string& content);

/// The groups of a whole drawing with nothing but these entities.
std::string drawingOf(const std::string& entities);

/// What the reader makes of a file with these groups, or with this text.
Drawing readGroups(const std::string& groups);
Drawing readText(const std::string& text);

/// An entity's geometry as a test expects it, such as "circle 1,2,0 r 5 extruded 0,0,-1"; angles are in degrees.
std::string textOf(const Entity& entity);

/// A colour such as "index 3" or "byLayer".
std::string textOf(const Colour& colour);

/// Reads entities that are to come out as one. Fails the test where they do not.
Entity readOne(const std::string& entities);

} // namespace kelplot
