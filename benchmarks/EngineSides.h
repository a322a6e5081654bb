// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <benchmark/benchmark.h>
#include <clipper.hpp>

#include "RegionShapes.h"
#include "gpc.h"

/// Measures `gpc_polygon_clip` on two outlines; the counter "result" is the area that comes out.
void clipByGpc(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second);

/// Measures the bare Clipper engine in the same way, on paths that are on the grid already.
void clipByEngine(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second);

/// An outline on the grid of 50 bits that the engine works on.
ClipperLib::Path gridPath(const Outline& outline);

/// The area that paths on that grid enclose, holes left out.
double areaOf(const ClipperLib::Paths& paths);
