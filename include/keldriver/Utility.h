#pragma once

#include "keldriver/Export.h"

/// Allocates `size` bytes, exactly as `malloc` does; null when there is no room.
///
/// Every buffer that this library hands over to a caller comes from here unless its function says otherwise.
/// Release it with `HT_Free`, so that library and driver need not share a runtime.
KELDRIVER_API void* HT_Malloc(unsigned long size);

/// Releases what `HT_Malloc` gave, exactly as `free` does; null is allowed.
KELDRIVER_API void HT_Free(void* memory);
