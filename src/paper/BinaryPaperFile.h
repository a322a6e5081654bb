// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "keldriver/Paper.h"

namespace KelDriver::Internal {

/// A binary paper file opened for reading.
class BinaryPaperFile {
public:
    /// Nothing when the file cannot be opened, or reading its header meets a fault.
    static std::optional<BinaryPaperFile> open(const std::wstring& path);

    /// The number of papers as the file states it: negative, or more than it holds, when the file is damaged. 0 when
    /// its header is not that of a paper file.
    int count() const { return m_count; }

    /// Reads the next compact record; what the file lacks is zero.
    PaperSize nextCompact();

    /// Whether something could not be read for another reason than that the file had ended.
    bool hasFailed() const { return std::ferror(m_stream.get()) != 0; }

    /// All papers of a file of whole records; nothing when it holds less than it states, or states less than none.
    std::optional<std::vector<PaperSize>> allWhole();

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); } // only read from: nothing left to fail
    };
    using Stream = std::unique_ptr<std::FILE, Close>;

    BinaryPaperFile(Stream stream, int count) : m_stream(std::move(stream)), m_count(count) {}

    bool holdsWhole() const;

    Stream m_stream;
    int m_count;
};

/// Writes a binary paper file of compact records.
///
/// @param count  written as it is; no record is written when it is negative
/// @return false when the file does not hold all of it, and is as it was
bool writeBinaryPaperFile(const std::wstring& path, const PaperSize* papers, int count);

} // namespace KelDriver::Internal
