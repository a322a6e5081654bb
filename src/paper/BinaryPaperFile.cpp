// SPDX-License-Identifier: BSD-3-Clause
#include "paper/BinaryPaperFile.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <sys/stat.h>

#include "paper/PaperRecord.h"
#include "port/Utf8.h"
#include "port/WinRuntime.h"
#include "settings/FileReplacement.h"

namespace KelDriver::Internal {

namespace {

// Its own length, then magic and format version without terminators. Readers ignore the last three bytes.
constexpr size_t headerSize = 24;
constexpr std::string_view magicAndVersion = "VORNPAPER20120910";
constexpr size_t magicOffset = sizeof(int32_t);
constexpr size_t recordsOffset = headerSize + sizeof(int32_t);

} // namespace

std::optional<BinaryPaperFile> BinaryPaperFile::open(const std::wstring& path) {
    std::FILE* file = nullptr;
    if (_wfopen_s(&file, path.c_str(), L"rb") != 0) {
        return std::nullopt;
    }
    Stream stream(file);
    char head[recordsOffset];
    const bool isWhole = std::fread(head, sizeof head, 1, file) == 1;
    if (std::ferror(file) != 0) {
        return std::nullopt;
    }
    const bool isPaperFile = isWhole && std::string_view(head + magicOffset, magicAndVersion.size()) == magicAndVersion;
    return BinaryPaperFile(std::move(stream), isPaperFile ? takeInt32(head + headerSize) : 0);
}

PaperSize BinaryPaperFile::nextCompact() {
    char record[compactRecordSize] = {};
    const size_t length = std::fread(record, 1, sizeof record, m_stream.get());
    std::fill(record + length, std::end(record), '\0');
    return fromCompactRecord(record);
}

std::optional<std::vector<PaperSize>> BinaryPaperFile::allWhole() {
    if (!holdsWhole()) {
        return std::nullopt;
    }
    std::vector<PaperSize> papers(static_cast<size_t>(m_count));
    for (PaperSize& paper : papers) {
        char record[wholeRecordSize];
        if (std::fread(record, sizeof record, 1, m_stream.get()) != 1) {
            return std::nullopt;
        }
        paper = fromWholeRecord(record);
        // What follows a terminator is no part of the name; one that fills its slot has none.
        std::fill(std::find(paper.Name, std::end(paper.Name), L'\0'), std::end(paper.Name), L'\0');
    }
    return papers;
}

// Asked before memory is taken for the stated number of papers.
bool BinaryPaperFile::holdsWhole() const {
    struct stat status {};
    if (m_count < 0 || fstat(fileno(m_stream.get()), &status) != 0) {
        return false;
    }
    return static_cast<uint64_t>(status.st_size) >= recordsOffset + static_cast<uint64_t>(m_count) * wholeRecordSize;
}

bool writeBinaryPaperFile(const std::wstring& path, const PaperSize* papers, int count) {
    const size_t records = static_cast<size_t>(std::max(count, 0));
    std::vector<char> bytes(recordsOffset + records * compactRecordSize);
    putInt32(bytes.data(), headerSize);
    std::copy(magicAndVersion.begin(), magicAndVersion.end(), bytes.begin() + magicOffset);
    putInt32(&bytes[headerSize], count);
    for (size_t i = 0; i < records; ++i) {
        toCompactRecord(papers[i], &bytes[recordsOffset + i * compactRecordSize]);
    }
    return writeFile(toUtf8(path), {bytes.data(), bytes.size()});
}

} // namespace KelDriver::Internal
