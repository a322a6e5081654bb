// SPDX-License-Identifier: BSD-3-Clause
#pragma once

/// Marks a name that drivers link against; everything else in the library stays hidden.
#define KELDRIVER_API __attribute__((visibility("default")))

/// Hides a member of a class that is marked `KELDRIVER_API`: an internal of the library, free to change.
#define KELDRIVER_LOCAL __attribute__((visibility("hidden")))
