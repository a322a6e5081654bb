// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

#include "keldriver/Export.h"
#include "keldriver/Win32Types.h"

/// Replaces `name` with the family name of the font that `DrawText` builds from this record: the one that is asked
/// for, installed or not.
///
/// @param font  borrowed; its face name may fill all 32 characters without a terminator. Null counts as a record of
///              zeros.
/// @return always 1
KELDRIVER_API int GetFontFullName(const tagLOGFONTW* font, std::wstring& name);
