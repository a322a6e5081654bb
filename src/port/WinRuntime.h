// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdio>

/// Formats as `CString::Format` does and copies the text with its terminator to `destination`, which must have room
/// for all of it: its size is not known here.
///
/// @return length of the text in wide characters
int swprintf_s(wchar_t* destination, const wchar_t* format, ...);

/// Opens the file that a wide path names, with a mode such as L"rb".
///
/// @param stream  receives the stream, to be closed by the caller, or null when the file was not opened
/// @return 0 when the file was opened, 1 when not
int _wfopen_s(FILE** stream, const wchar_t* path, const wchar_t* mode); // NOLINT(bugprone-reserved-identifier)
