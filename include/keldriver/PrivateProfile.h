// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/Export.h"

/// @file
/// Reads and writes single settings of a file, in the manner of the Win32 calls of these names.
///
/// Every call reads the file again. Names are wide text and are looked up as UTF-8, byte by byte; wide text that has
/// no UTF-8 form makes the call throw `std::range_error`. Values lose all double quotes at both ends, and are
/// widened under the process's locale, or as UTF-8 where the locale rejects them; one that is neither is not written,
/// yet counted.
///
/// Results and positions count bytes, each value with a terminator. A value with characters of several bytes is
/// shorter as wide text, and zeros fill the gap: the next one begins where the bytes would end.
///
/// Null for a section, a key, a value, a default or a file is the empty text; null for a buffer asks for the size, as 0
/// for its size does. Sizes are counts of `wchar_t`.

/// The values of a key, one for each time it occurs in the section, each with a terminator; empty ones are left out.
///
/// When there is no value, when not even the first fits, or when the file cannot be read or has a malformed line, the
/// default is appended to the text in `out`, **whatever `size` is**: `out` needs room for it. With `size` 0 it must
/// hold a terminated text, to which the default is added.
///
/// @param out   zeroed first. With `size` 0 it is not, and the values are only counted. Null is as `size` 0, but takes
///              no default
/// @param size  the first value that does not fit ends the list
/// @return the number of `wchar_t` used, or counted; 8 when the default is used
KELDRIVER_API int GetPrivateProfileStringEx(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue,
                                            wchar_t* out, unsigned int size, const wchar_t* file);

/// The decimal number that the first non-empty value of a key begins with; 0 when it begins with none.
///
/// @return the default when there is no value, or when the file cannot be read or has a malformed line
KELDRIVER_API int GetPrivateProfileIntEx(const wchar_t* section, const wchar_t* key, int defaultValue,
                                         const wchar_t* file);

/// The names of the sections, written to `out` as `GetPrivateProfileStringEx` writes values.
///
/// @return the number of `wchar_t` used, or counted; 0 when the file cannot be read or has a malformed line
KELDRIVER_API int GetPrivateProfileSectionNamesEx(wchar_t* out, unsigned int size, const wchar_t* file);

/// Sets the value of a key, creating file, section and key where they are missing. The whole file is rewritten; a
/// comment above the key is lost.
///
/// A file that cannot be read, or has a malformed line, stays as it is; so does one that cannot be written, as on a
/// full device. Calls on one file, from several threads and programs, take turns, so that none undoes
/// what another has set; after two seconds of another's turn a call goes ahead without. A turn is an exclusive `flock`
/// on the folder that the file is really in, links followed, or on the file when it has several names or the folder
/// cannot be read. Where the file system knows no such locks, as some network ones, nobody waits.
///
/// A value ends at a "#" and loses blanks at its ends when it is read back, and quotes around it are dropped; a line
/// break in one makes the file malformed.
///
/// @return 1, always
KELDRIVER_API int WritePrivateProfileStringEx(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                              const wchar_t* file);
