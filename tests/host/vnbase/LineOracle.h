// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

#include "host/vnbase/ClippedLine.h"

/// How far apart two places must be to count as two, and how far beside an edge its sides are looked at; both as
/// parts of the size of the drawing.
struct OracleGrain {
    long double same;
    long double beside;
};

/// Compares pieces with those found by cutting every segment at every edge, in more digits.
///
/// @return an empty text, or what differs first
std::string differenceFromOracle(const Contours& region, const Line& line, long double size, OracleGrain grain,
                                 const PieceList& pieces);
