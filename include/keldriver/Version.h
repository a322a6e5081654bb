// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/Export.h"

/// The version of these headers. A new major number is a library that drivers must be compiled for again; a new minor
/// number adds to the interface.
#define KELDRIVER_VERSION_MAJOR 0
#define KELDRIVER_VERSION_MINOR 1
#define KELDRIVER_VERSION_PATCH 0

/// A version as one number that can be compared, with room for 99 minor numbers and 99 patches.
#define KELDRIVER_VERSION_NUMBER(major, minor, patch) (10000 * (major) + 100 * (minor) + (patch))

/// The version of these headers as such a number.
#define KELDRIVER_VERSION                                                                                              \
    KELDRIVER_VERSION_NUMBER(KELDRIVER_VERSION_MAJOR, KELDRIVER_VERSION_MINOR, KELDRIVER_VERSION_PATCH)

/// Whether these headers are of that version or a later one; for `#if`.
#define KELDRIVER_VERSION_AT_LEAST(major, minor, patch)                                                                \
    (KELDRIVER_VERSION >= KELDRIVER_VERSION_NUMBER(major, minor, patch))

/// The version of the library that is loaded, to be compared with `KELDRIVER_VERSION`: a driver may run with a later
/// library than it was compiled for.
///
/// @return as `KELDRIVER_VERSION_NUMBER` counts
KELDRIVER_API int HT_GetLibraryVersion();
