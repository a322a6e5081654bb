#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/vnbase/RegionModel.h"

/// A piece in device coordinates.
using Piece = std::vector<std::array<int32_t, 2>>;
using PieceList = std::vector<Piece>;

/// Clips through the entry points of the module, loaded from the build. Fails the test where a buffer is not as
/// agreed.
PieceList clipWithModule(const RegionModel& region, const Line& line);

/// Clips through the shared library.
PieceList clipWithLibrary(const RegionModel& region, const Line& line);

/// Pieces as text, "x,y x,y | x,y x,y".
std::string textOf(const PieceList& pieces);

using ClipProc = int (*)(const HT_Double_Point*, int, const HT_ClipRgn*, int32_t**, int32_t**);
using FreeProc = void (*)(void*);

/// The entry points of the module; null where it has none.
struct Module {
    ClipProc clip;
    FreeProc free;
};
const Module& module();
