// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

#include "keldriver/Export.h"
#include "keldriver/Win32Types.h"

/// One paper of a device. Lists of papers are plain arrays of this record.
struct PaperSize {
    int32_t Paper;     ///< Win32 paper number (9 is A4); papers that users add count from 257; -1 asks for a new one
    wchar_t Name[64];  ///< shown to people; terminated, except that a binary paper file may fill it whole
    int32_t Width;     ///< tenths of a millimetre
    int32_t Length;    ///< tenths of a millimetre
    int32_t UpEdge;    ///< top margin
    int32_t DownEdge;  ///< bottom margin
    int32_t LeftEdge;  ///< left margin
    int32_t RightEdge; ///< right margin
    int32_t Units;     ///< the driver's own code, kept and handed back as it is
};

static_assert(sizeof(wchar_t) == 4 && sizeof(PaperSize) == 288, "drivers and paper files share this layout");
static_assert(offsetof(PaperSize, Width) == 260 && offsetof(PaperSize, Units) == 284);

/// Answers a Win32 device-capability query from a driver's paper file.
///
/// A path ending in "PER" (in any letter case) names a binary paper file, which caches the INI paper file beside it
/// (same path with ".ini" in place of its last four characters). While the binary file does not exist the INI file
/// answers, and a query of whole records (code 19 with a buffer) creates the binary file. Any other path names an INI
/// paper file.
///
/// | Code    | Written for each paper                                     | Answer      |
/// |---------|------------------------------------------------------------|-------------|
/// | 2       | `Paper`, 16 bits                                           | paper count |
/// | 3       | `Width`, `Length`, 32 bits each                            | paper count |
/// | 9, 16   | `Name` in a slot of 64 wide characters                     | paper count |
/// | 13      | once: three pairs of resolutions in dots per inch, 32 bits | 3           |
/// | 19      | the whole `PaperSize`                                      | paper count |
/// | 20      | once: largest width and length, 32 bits (INI file only)    | 0           |
/// | 65      | `LeftEdge`, `UpEdge`, `RightEdge`, `DownEdge`, 32 bits     | paper count |
///
/// A binary file written by this library answers codes 19 and 13. To the others, with a buffer, it answers 0: they read
/// a binary file of whole 288-byte `PaperSize` records, which this library never writes. Ask the INI file for those.
///
/// Reading does not take turns with writers: another program can add a paper between the query for the count and the
/// one for the papers. Hold an exclusive `flock` on the file's folder over both queries, as this library does while it
/// writes, or query a copy of the file. A query that makes the binary file waits for its turn itself, up to two
/// seconds; while the caller holds that lock it gets none, and leaves the file to a later query.
///
/// @param code    other codes answer 0 and write nothing
/// @param output  receives the answer, with room for as many entries as the file states when it is read; null asks for
///                the count only. It needs no alignment.
/// @param device  ignored
/// @param path    of the paper file; not null, at least three characters (else `std::out_of_range`), with a UTF-8 form
///                (else `std::range_error`)
/// @return the table's answer. A count is answered as the file states it, even a negative one, and code 19 answers it
///         for a file that is cut off too, with zeros for what is missing. 0 when the binary file cannot be opened or
///         its header is not that of a paper file: nothing tells it from an empty list.
KELDRIVER_API int HT_DefaultDeviceCapabilities(unsigned short code, char* output, const _devicemodeW* device,
                                               const wchar_t* path);

/// Writes a list of papers as the paper file that `path` names by its ending: binary for "PER", else INI.
///
/// An INI file keeps its other sections, those of papers beyond the new count among them. It loses the comments above
/// the keys that are written and below its last key. A malformed INI file is left as it is, one that cannot be written
/// stays unwritten, and both still answer 1.
///
/// A file holds the old list until it holds the new one; `inifile::IniFile::SaveAs` tells how, and which files a kill
/// can cut short. Writers of one file take turns, as at `WritePrivateProfileStringEx`.
///
/// In an INI file a name ends at a "#", loses quotes and blanks at its ends, and reads back empty when it takes more
/// than 63 bytes of UTF-8. A line break in one makes the file malformed.
///
/// Throws `std::out_of_range` for a path of fewer than three characters, and `std::range_error` when the path or a name
/// for an INI file has no UTF-8 form; what comes before such a name is written.
///
/// @param papers  `count` records; borrowed; names are taken up to 64 characters. Null with a `count` above 0 answers 0
/// @return 1, or 0 when the binary file could not be written
KELDRIVER_API int HT_WritePaperFile(const wchar_t* path, const PaperSize* papers, int count);

/// Stores a paper in a driver's paper file: in place of the first one of the same number, else as a new last one.
///
/// A malformed INI file, and a binary file without the header of a paper file, count as empty lists; the binary one is
/// replaced. A file that cannot be read (if there is no binary file, the INI file beside it), or that states more than
/// 4096 papers and cannot hold them, is left as it is.
///
/// Throws what `HT_WritePaperFile` throws, and `std::bad_array_new_length` when the file states less than -1 papers.
///
/// @param device  ignored
/// @param paper   with the number -1 it becomes a new last paper under the smallest free number from 257 upward
/// @param path    of the paper file, INI or binary
/// @return the number under which it is stored; a file that states -1 papers answers it too, and becomes an empty list.
///         -1 when it is not stored: the file cannot be read or written, is an INI file with a malformed line, states
///         more than it can hold, or another writer held on to it for two seconds
KELDRIVER_API int HT_DefaultCreatePaper(_devicemodeW* device, const PaperSize& paper, const wchar_t* path);

/// Does exactly what `HT_DefaultCreatePaper` does: a paper that is not in the list is added.
KELDRIVER_API int HT_DefaultModifyPaper(_devicemodeW* device, const PaperSize& paper, const wchar_t* path);

/// Removes the first paper of number `paper` from a driver's paper file.
///
/// Throws what `HT_WritePaperFile` throws, and `std::bad_array_new_length` when the file states less than no papers.
///
/// @param device  ignored
/// @param paper   only read
/// @param path    of the paper file, INI or binary
/// @return 1 when it is gone, and when the file lists none of that number: files that `HT_DefaultCreatePaper` takes for
///         empty lists, and those that cannot be read, list none. 0 when it was not removed: the file cannot be
///         written, states more than it can hold, or another writer held on to it for two seconds
KELDRIVER_API int HT_DefaultDeletePaper(_devicemodeW* device, int& paper, const wchar_t* path);
