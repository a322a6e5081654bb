// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <benchmark/benchmark.h>

#include "RegionShapes.h"
#include "gpc.h"

/// Measures a Boolean operation of Boost.Geometry on two outlines; the counter "result" is the area that comes out.
void clipByBoost(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second);
