// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

#include "keldriver/Export.h"

/// A point in the driver's plot units.
struct HT_Double_Point {
    double x; ///< to the right
    double y; ///< down the page for a renderer; elsewhere the function says so where it matters
};

/// An axis-parallel rectangle in plot units. Functions that fill one put the smaller coordinates first.
struct HT_Double_Rectangle {
    double minX; ///< smallest x
    double minY; ///< smallest y
    double maxX; ///< largest x
    double maxY; ///< largest y
};

/// A size in device units.
struct HT_Int_Size {
    int32_t width;  ///< to the right
    int32_t height; ///< down the page
};

/// A colour: byte 0 (the least significant) is red, byte 1 green, byte 2 blue; byte 3 is not read.
using HT_Color = uint32_t;

static_assert(sizeof(HT_Double_Point) == 16 && offsetof(HT_Double_Point, x) == 0 && offsetof(HT_Double_Point, y) == 8,
              "record shared with drivers");
static_assert(sizeof(HT_Double_Rectangle) == 32 && offsetof(HT_Double_Rectangle, minX) == 0 &&
                  offsetof(HT_Double_Rectangle, minY) == 8 && offsetof(HT_Double_Rectangle, maxX) == 16 &&
                  offsetof(HT_Double_Rectangle, maxY) == 24,
              "record shared with drivers");
static_assert(sizeof(HT_Int_Size) == 8 && offsetof(HT_Int_Size, width) == 0 && offsetof(HT_Int_Size, height) == 4,
              "record shared with drivers");

/// Tells whether two values differ by strictly less than `tol`; false when any of them is NaN.
/// Geometric equality in this library uses a tolerance of 1e-10.
KELDRIVER_API bool isEqual(double a, double b, double tol);

/// Grows `a` to the smallest rectangle that holds both; an empty or inverted rectangle gets no special treatment.
KELDRIVER_API void UnionRectangle(HT_Double_Rectangle& a, const HT_Double_Rectangle& b);
