// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

#include "keldriver/Paper.h"
#include "settings/ProfileSession.h"

namespace KelDriver::Internal {

/// An INI paper file, read once.
class IniPaperFile {
public:
    /// A file that cannot be read, or is malformed, has no papers. Throws `std::range_error` when the path has no
    /// UTF-8 form.
    explicit IniPaperFile(const std::wstring& path);

    /// Whether the file is there and cannot be read: its papers are not known.
    bool isUnreadable() const { return m_isUnreadable; }
    /// The number of papers as the file states it; may be negative.
    int count();
    /// The paper of an index; what its section lacks, and a section that is missing, has defaults.
    PaperSize paper(int index);
    /// The size of the largest paper that the device takes.
    int32_t largestWidth();
    int32_t largestLength();

private:
    ProfileSession m_session;
    bool m_isUnreadable;
};

/// Writes a list of papers into an INI paper file, keeping what else it holds.
///
/// @return false when the file, malformed or not to be written, did not take them all
bool writeIniPaperFile(const std::wstring& path, const PaperSize* papers, int count);

} // namespace KelDriver::Internal
