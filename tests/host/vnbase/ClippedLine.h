// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <string>
#include <vector>

#include "support/RegionOracle.h"

using regionOracle::Contours;
using Line = regionOracle::Points;

/// Points from text, "x,y x,y …".
Line lineOf(const std::string& text);

/// A piece in device coordinates.
using Piece = std::vector<std::array<int32_t, 2>>;
using PieceList = std::vector<Piece>;

/// Clips through the shared library, which loads the module from the build.
PieceList clip(const Contours& region, const Line& line);

/// Pieces as text, "x,y x,y | x,y x,y".
std::string textOf(const PieceList& pieces);
