#pragma once

#include <string>
#include <vector>

#include "keldriver/ClipRgn.h"
#include "support/RgnList.h"

using Line = std::vector<HT_Double_Point>;

/// A contour of a region under test, with its operation code.
struct ModelContour {
    int32_t mode;
    Line points;
};

/// A region as a test writes it down.
using RegionModel = std::vector<ModelContour>;

/// The list of records that the code under test gets.
RgnList listOf(const RegionModel& region);

/// Points from text, "x,y x,y …".
Line lineOf(const std::string& text);

/// Whether a point is in the region, by crossings of a ray with every edge of every contour.
bool modelHolds(const RegionModel& region, long double x, long double y);

/// The distance from a point to the nearest edge of any contour.
long double distanceToEdges(const RegionModel& region, long double x, long double y);

long double distanceToSegment(const HT_Double_Point& a, const HT_Double_Point& b, long double x, long double y);

std::ostream& operator<<(std::ostream& out, const RegionModel& region);
