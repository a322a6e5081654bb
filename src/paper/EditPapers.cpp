// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <vector>

#include "keldriver/Paper.h"
#include "paper/BinaryPaperFile.h"
#include "paper/IniPaperFile.h"
#include "paper/PaperList.h"
#include "paper/PaperPath.h"
#include "port/Utf8.h"
#include "settings/WriterLock.h"

using namespace KelDriver::Internal;

namespace {

constexpr int32_t newPaper = -1;
constexpr int32_t firstOwnNumber = 257;

// There is one more number than there are papers, so one must be free.
int32_t lowestFreeNumber(const std::vector<PaperSize>& papers) {
    std::vector<bool> isTaken(papers.size() + 1);
    for (const PaperSize& paper : papers) {
        const int64_t place = int64_t{paper.Paper} - firstOwnNumber;
        if (place >= 0 && place < static_cast<int64_t>(isTaken.size())) {
            isTaken[static_cast<size_t>(place)] = true;
        }
    }
    const auto place = std::find(isTaken.begin(), isTaken.end(), false) - isTaken.begin();
    return firstOwnNumber + static_cast<int32_t>(place);
}

auto findPaper(std::vector<PaperSize>& papers, int32_t number) {
    return std::find_if(papers.begin(), papers.end(), [number](const PaperSize& each) { return each.Paper == number; });
}

WriterLock turnAt(const std::wstring& path) {
    requirePaperPath(path);
    return WriterLock(toUtf8(path));
}

bool writePapers(const std::wstring& path, const PaperSize* papers, int count) {
    return isBinaryPaperPath(path) ? writeBinaryPaperFile(path, papers, count) : writeIniPaperFile(path, papers, count);
}

bool writePapers(const std::wstring& path, const std::vector<PaperSize>& papers) {
    return writePapers(path, papers.data(), static_cast<int>(papers.size()));
}

} // namespace

int HT_WritePaperFile(const wchar_t* path, const PaperSize* papers, int count) {
    if (papers == nullptr && count > 0) {
        return 0;
    }
    const WriterLock turn = turnAt(path);
    const bool isWritten = writePapers(path, papers, count);
    return isWritten || !isBinaryPaperPath(path) ? 1 : 0; // an INI file answers 1 in any case
}

int HT_DefaultCreatePaper(_devicemodeW*, const PaperSize& paper, const wchar_t* path) {
    const WriterLock turn = turnAt(path);
    if (turn.isRefused()) {
        return -1;
    }
    auto list = readPaperList(path, 1);
    if (!list || !list->isReadable) {
        return -1;
    }
    std::vector<PaperSize>& papers = list->papers;
    PaperSize stored = paper;
    auto place = papers.end();
    if (paper.Paper == newPaper) {
        stored.Paper = lowestFreeNumber(papers);
    } else {
        place = findPaper(papers, paper.Paper);
    }
    if (place != papers.end()) {
        *place = stored;
    } else if (list->count >= 0) { // a list of -1 papers has no place for it, and becomes an empty one
        papers.push_back(stored);
    }
    return writePapers(path, papers) ? stored.Paper : -1;
}

int HT_DefaultModifyPaper(_devicemodeW* device, const PaperSize& paper, const wchar_t* path) {
    return HT_DefaultCreatePaper(device, paper, path);
}

int HT_DefaultDeletePaper(_devicemodeW*, int& paper, const wchar_t* path) {
    const WriterLock turn = turnAt(path);
    if (turn.isRefused()) {
        return 0;
    }
    auto list = readPaperList(path, 0);
    if (!list) {
        return 0;
    }
    const auto place = findPaper(list->papers, paper);
    if (place == list->papers.end()) {
        return 1;
    }
    list->papers.erase(place);
    return list->isReadable && writePapers(path, list->papers) ? 1 : 0;
}
