// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include "keldriver/ClipRgn.h"
#include "keldriver/Types.h"

/// Clips an open polyline by a region. Sets the two pointers to buffers of its own: for each piece a vertex count,
/// and the vertices of all pieces, x and y in turn. Returns the number of pieces, negative for a failure.
using ClipPolylineProc = int (*)(const HT_Double_Point* pts, int n, const HT_ClipRgn* rgn, int32_t** coords,
                                 int32_t** counts);

/// Releases a buffer of the entry point above.
using ClipBufferFree = void (*)(void* buffer);

/// The application's geometry module; all null while there is none.
extern void* g_GeMoudle; ///< handle of the dynamic loader
extern ClipPolylineProc g_ClipProc;
extern ClipBufferFree g_ClipFree;

/// Looks for "vnbase.so" along the loader's search path and notes its entry points; a module may lack either. Runs
/// when the library is loaded.
void InitInstance();

/// Lets go of the module. The entry points keep their values: no polyline is clipped after it. Runs when the
/// library is unloaded.
void ExitInstance();
