// SPDX-License-Identifier: BSD-3-Clause
#include <cstring>
#include <iterator>
#include <vector>

#include "keldriver/Paper.h"
#include "paper/BinaryPaperFile.h"
#include "paper/IniPaperFile.h"
#include "paper/PaperAnswer.h"
#include "paper/PaperPath.h"
#include "port/Utf8.h"
#include "settings/WriterLock.h"

using namespace KelDriver::Internal;

namespace {

constexpr unsigned short resolutionsCode = 13;
constexpr unsigned short largestPaperCode = 20;

int answerResolutions(char* output) {
    constexpr int32_t resolutions[][2] = {{150, 150}, {300, 300}, {600, 600}};
    if (output != nullptr) {
        std::memcpy(output, resolutions, sizeof resolutions);
    }
    return std::size(resolutions);
}

void answerLargestPaper(IniPaperFile& file, char* output) {
    const int32_t largest[] = {file.largestWidth(), file.largestLength()};
    std::memcpy(output, largest, sizeof largest);
}

int answerFromIni(unsigned short code, char* output, IniPaperFile& file) {
    const PaperAnswer* answer = paperAnswerFor(code);
    if (answer == nullptr && code != largestPaperCode) {
        return 0;
    }
    if (answer == nullptr) {
        if (output != nullptr) {
            answerLargestPaper(file, output);
        }
        return 0;
    }
    const int count = file.count();
    if (output == nullptr) {
        return count;
    }
    for (int i = 0; i < count; ++i) {
        answer->write(file.paper(i), answer->entry(output, i));
    }
    return count;
}

int answerFromBinary(unsigned short code, char* output, const std::wstring& path) {
    const PaperAnswer* answer = paperAnswerFor(code);
    auto file = answer != nullptr ? BinaryPaperFile::open(path) : std::nullopt;
    if (!file || output == nullptr) {
        return file ? file->count() : 0;
    }
    if (code == wholePapersCode) { // every entry is filled, however short the file
        for (int i = 0; i < file->count(); ++i) {
            answer->write(file->nextCompact(), answer->entry(output, i));
        }
        return file->count();
    }
    // All other lists are read from whole records only; the library's own file answers 0: part of the interface.
    const auto papers = file->allWhole();
    if (!papers) {
        return 0;
    }
    for (int i = 0; i < file->count(); ++i) {
        answer->write((*papers)[static_cast<size_t>(i)], answer->entry(output, i));
    }
    return file->count();
}

// The query of whole records: once read, they become the binary file. A query that waits too long for another writer
// leaves the file to a later one.
int answerAndMakeBinary(char* output, const std::wstring& path) {
    const WriterLock turn(toUtf8(path));
    if (pathExists(path)) { // another program made it meanwhile, and has perhaps edited it
        return answerFromBinary(wholePapersCode, output, path);
    }
    IniPaperFile file(iniPathBeside(path));
    const int count = answerFromIni(wholePapersCode, output, file);
    std::vector<PaperSize> papers(count > 0 ? static_cast<size_t>(count) : 0); // the buffer may be unaligned
    if (!papers.empty()) {
        std::memcpy(papers.data(), output, papers.size() * sizeof(PaperSize));
    }
    if (!turn.isRefused() && !file.isUnreadable()) {
        writeBinaryPaperFile(path, papers.data(), count);
    }
    return count;
}

} // namespace

int HT_DefaultDeviceCapabilities(unsigned short code, char* output, const _devicemodeW*, const wchar_t* path) {
    const std::wstring file = path;
    const bool isBinary = isBinaryPaperPath(file);
    const bool isThere = isBinary && pathExists(file);
    if (code == resolutionsCode) {
        return answerResolutions(output);
    }
    if (isThere) {
        return answerFromBinary(code, output, file);
    }
    if (isBinary && code == wholePapersCode && output != nullptr) {
        return answerAndMakeBinary(output, file);
    }
    IniPaperFile ini(isBinary ? iniPathBeside(file) : file);
    return answerFromIni(code, output, ini);
}
