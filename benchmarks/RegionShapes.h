// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <vector>

#include "keldriver/Types.h"

/// Outlines to measure regions with, in coordinates below 1000 either way.
using Outline = std::vector<HT_Double_Point>;

/// A star-shaped outline with uneven rays; the more vertices, the smoother, as outlines of drawings are.
Outline star(size_t vertices, HT_Double_Point centre, double radius, unsigned seed);

Outline circle(size_t corners, HT_Double_Point centre, double radius);

/// A band along the x axis whose upper side is a row of pointed teeth.
Outline teeth(size_t vertices);

/// A band of as many teeth that comes from above and crosses each tooth of the other.
Outline teethFromAbove(size_t vertices);

/// The same outline along the other axis.
Outline exchanged(Outline outline);

/// The area inside a closed outline, positive if it goes from x to y.
double signedArea(const HT_Double_Point* points, size_t count);
