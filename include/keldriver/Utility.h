// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/Export.h"

/// Allocates `size` bytes, exactly as `malloc` does; null when there is no room.
///
/// Every buffer that this library hands over to a caller comes from here unless its function says otherwise.
/// Release it with `HT_Free`.
KELDRIVER_API void* HT_Malloc(unsigned long size);

/// Releases what `HT_Malloc` gave, exactly as `free` does; null is allowed.
KELDRIVER_API void HT_Free(void* memory);

/// Tells the drivers where their data lies. The host calls it once, before any driver asks.
///
/// @param path  copied; the empty text restores the default, `VornGetAppFullPath`; null changes nothing
KELDRIVER_API void VornSetAppDataPath(const wchar_t* path);

/// The folder of the drivers' data: the one that was set, else `VornGetAppFullPath`.
///
/// @return borrowed; valid until the next `VornSetAppDataPath`
KELDRIVER_API const wchar_t* VornGetAppDataPath();

/// The folder "Drivers" beside the running executable, that is beside the host and not beside this library.
///
/// @return borrowed, valid until the process ends; the empty text when the executable's path cannot be read, or
///         is text neither in the current locale nor in UTF-8, and then the next call tries again. At most 259 bytes
///         of the path are kept.
KELDRIVER_API const wchar_t* VornGetAppFullPath();

/// `VornGetAppDataPath` ready for a file name to be appended: ends in a backslash, or in the slash it had.
///
/// @return borrowed; valid until the next call of this function
KELDRIVER_API const wchar_t* VornGetAppDataPathWithBackslash();

/// The section names of a settings file, as `GetPrivateProfileSectionNamesEx` writes them.
///
/// With a size of 0 it measures a list cut off at 256 wide characters. Only if the names that fit use exactly 254 does
/// it measure again with twice the room, and so on. A list that fits is measured in full; for a longer one the answer
/// is too small.
///
/// @param buffer  room for `size` wide characters; untouched, and may be null, when `size` is 0 or less
/// @param size    in wide characters; 0 measures
/// @param file    path of the settings file
/// @return the wide characters used, terminators included; when it measures, 2 more than the names used; 0 for a
///         negative size
KELDRIVER_API int HT_ListCloseDriver(wchar_t* buffer, int size, const wchar_t* file);

/// Whether drivers can use smooth drawing: always 1.
KELDRIVER_API int HT_IsSupportGDIPlus();

/// The base for a driver's port monitor; destroyed through this class. It requires nothing of its derived classes.
class KELDRIVER_API PortMonitor {
public:
    /// A monitor without anything in it.
    PortMonitor();
    /// Copies nothing: there is nothing in a monitor.
    PortMonitor(const PortMonitor&) = default;
    /// Changes nothing.
    PortMonitor& operator=(const PortMonitor&) = default;
    /// Virtual: a driver's monitor may be deleted through a pointer to this class.
    virtual ~PortMonitor();
};
