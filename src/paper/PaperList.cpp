// SPDX-License-Identifier: BSD-3-Clause
#include "paper/PaperList.h"

#include <algorithm>
#include <new>
#include <sys/stat.h>

#include "paper/BinaryPaperFile.h"
#include "paper/IniPaperFile.h"
#include "paper/PaperPath.h"
#include "paper/PaperRecord.h"
#include "port/Utf8.h"

namespace KelDriver::Internal {

namespace {

void requireRoom(int count, int spare) {
    if (count < -spare) {
        throw std::bad_array_new_length();
    }
}

// A paper that the file lacks reads as defaults, or as zeros, so that a file may state some more papers than it
// describes. Beyond this, memory is not taken for papers that are not there.
bool mayState(const std::wstring& path, int count, int64_t bytesPerPaper) {
    constexpr int64_t alwaysAllowed = 4096;
    struct stat status {};
    const bool isThere = stat(toUtf8(path).c_str(), &status) == 0;
    return count <= std::max<int64_t>(alwaysAllowed, isThere ? status.st_size / bytesPerPaper : 0);
}

std::optional<PaperList> readIniList(const std::wstring& path, int spare) {
    constexpr int64_t shortestSection = sizeof "[Paper 1000]"; // with its line break
    IniPaperFile file(path);
    const int count = file.count();
    requireRoom(count, spare);
    if (!mayState(path, count, shortestSection)) {
        return std::nullopt;
    }
    PaperList list{count, {}, !file.isUnreadable()};
    list.papers.reserve(static_cast<size_t>(int64_t{count} + spare));
    for (int i = 0; i < count; ++i) {
        list.papers.push_back(file.paper(i));
    }
    return list;
}

std::optional<PaperList> readBinaryList(const std::wstring& path, int spare) {
    auto file = BinaryPaperFile::open(path);
    if (!file) {
        return PaperList{0, {}, false};
    }
    const int count = file->count();
    requireRoom(count, spare);
    if (!mayState(path, count, compactRecordSize)) {
        return std::nullopt;
    }
    PaperList list{count, std::vector<PaperSize>(static_cast<size_t>(std::max(count, 0))), true};
    std::generate(list.papers.begin(), list.papers.end(), [&] { return file->nextCompact(); });
    list.isReadable = !file->hasFailed();
    return list;
}

} // namespace

std::optional<PaperList> readPaperList(const std::wstring& path, int spare) {
    if (!isBinaryPaperPath(path)) {
        return readIniList(path, spare);
    }
    if (pathExists(path)) {
        return readBinaryList(path, spare);
    }
    auto list = readIniList(iniPathBeside(path), spare);
    if (list && list->isReadable) {
        writeBinaryPaperFile(path, list->papers.data(), list->count); // without it, a later query makes it
    }
    return list;
}

} // namespace KelDriver::Internal
