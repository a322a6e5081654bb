// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <string>
#include <vector>

#include "support/RegionOracle.h"

using regionOracle::Contours;
using Line = regionOracle::Points;

/// A piece in device coordinates.
using Piece = std::vector<std::array<int32_t, 2>>;
using PieceList = std::vector<Piece>;

/// Pieces as text, "x,y x,y | x,y x,y".
std::string textOf(const PieceList& pieces);

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
