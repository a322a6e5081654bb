#pragma once

/// Marks a name that drivers link against; everything else in the library stays hidden.
#define KELDRIVER_API __attribute__((visibility("default")))
