// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <climits>
#include <clocale>
#include <filesystem>
#include <future>
#include <new>
#include <tuple>

#include <gtest/gtest.h>

#include "paper/PaperBytes.h"
#include "settings/WriterLock.h"
#include "support/TemporaryDirectory.h"

using namespace KelDriver::Internal;

namespace {

std::vector<PaperSize> papersOf(const std::vector<int32_t>& numbers) {
    std::vector<PaperSize> papers(numbers.size());
    std::transform(numbers.begin(), numbers.end(), papers.begin(), [](int32_t each) { return paperOf(each, L"old"); });
    return papers;
}

int store(const std::string& path, int32_t number) {
    return HT_DefaultModifyPaper(nullptr, paperOf(number, L"new"), wide(path).c_str());
}

int erase(const std::string& path, int number) {
    return HT_DefaultDeletePaper(nullptr, number, wide(path).c_str());
}

TEST(EditPapers, StoresAndDeletesByNumber) {
    const struct {
        const char* name;
        int (*edit)(const std::string& path, int number);
        std::vector<int32_t> before;
        int request;
        int result;
        std::vector<int32_t> after;
        size_t storedAt;
    } rows[] = {
        {"first of one's own", store, {}, -1, 257, {257}, 0},
        {"lowest free number", store, {259, 257}, -1, 258, {259, 257, 258}, 2},
        {"no gap", store, {258, INT_MIN, INT_MAX, 257}, -1, 259, {258, INT_MIN, INT_MAX, 257, 259}, 4},
        {"a stored -1 is no request", store, {-1, 257}, -1, 258, {-1, 257, 258}, 2},
        {"first of two", store, {9, 8, 8}, 8, 8, {9, 8, 8}, 1},
        {"not in the list", store, {9, 8}, 300, 300, {9, 8, 300}, 2},
        {"delete the first of two", erase, {8, 9, 7, 9}, 9, 1, {8, 7, 9}, 9},
        {"delete what is not there", erase, {8, 9}, 7, 1, {8, 9}, 9},
        {"delete the last one", erase, {9}, 9, 1, {}, 9},
        {"delete from nothing", erase, {}, 9, 1, {}, 9},
    };
    for (const auto& row : rows) {
        const TemporaryDirectory directory;
        std::vector<PaperSize> papers = papersOf(row.after);
        if (row.storedAt < papers.size()) {
            papers[row.storedAt] = paperOf(row.result, L"new");
        }
        for (const char* name : {"p.PER", "p.ini"}) {
            SCOPED_TRACE(std::string(row.name) + " " + name);
            const std::string path = directory.path(name);
            HT_WritePaperFile(wide(path).c_str(), papersOf(row.before).data(), static_cast<int>(row.before.size()));
            EXPECT_EQ(row.edit(path, row.request), row.result);
            EXPECT_EQ(ask(19, path), std::to_string(papers.size()) + ":" + binaryFile(0, papers, 4).substr(28));
        }
        EXPECT_EQ(directory.read("p.PER"), binaryFile(static_cast<int>(papers.size()), papers)) << row.name;
    }
}

TEST(EditPapers, WritesNameByItsLow16BitsWithAllThatFollows) {
    const TemporaryDirectory directory;
    const PaperSize papers[] = {paperOf(-2, L"\U0001F5BA\x20AC"), paperOf(9, std::wstring(L"a\0b", 3) + L'\xFFFF')};
    EXPECT_EQ(HT_WritePaperFile(wide(directory.path("Ж.per")).c_str(), papers, 2), 1);
    EXPECT_EQ(directory.read("Ж.per"), binaryFile(2, {papers[0], papers[1]}));
    EXPECT_EQ(directory.read("Ж.per").substr(28, 10), "\xFE\xFF\xFF\xFF\xBA\xF5\xAC\x20" + std::string(2, '\0'));
}

TEST(EditPapers, KeepNamesOfOtherPapersInTheLocaleOfAPlainProgram) {
    const TemporaryDirectory directory;
    const std::string path = directory.path("p.ini"), locale = std::setlocale(LC_CTYPE, nullptr);
    const PaperSize large = paperOf(9, L"\u00DCbergr\u00F6\u00DFe");
    HT_WritePaperFile(wide(path).c_str(), &large, 1);
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(store(path, 8), 8);
    std::setlocale(LC_CTYPE, locale.c_str());
    EXPECT_NE(directory.read("p.ini").find("Name=\u00DCbergr\u00F6\u00DFe\n"), std::string::npos);
}

TEST(EditPapers, TellWhenTheFileWasNotReadOrWritten) {
    const TemporaryDirectory directory;
    std::filesystem::create_symlink("/dev/full", directory.path("full.PER"));
    for (const char* name : {"fault.PER", "fault.ini", "unread.ini"}) { // reading their start is an I/O fault
        std::filesystem::create_symlink("/proc/self/mem", directory.path(name));
    }
    directory.write("bad.ini", "[General]\nPaperCount=1\n[Paper 0]\nmalformed\n");
    for (const char* name :
         {"full.PER", "none/p.PER", "none/p.ini", "fault.PER", "fault.ini", "unread.PER", "bad.ini"}) {
        EXPECT_EQ(store(directory.path(name), 9), -1) << name;
    }
    for (const char* name : {"fault.PER", "fault.ini"}) {
        EXPECT_EQ(erase(directory.path(name), 9), 1) << name << " lists no paper";
    }
    EXPECT_FALSE(directory.exists("unread.PER"));
    const std::tuple<const char*, int, int> lists[] = {{"full.PER", 0, 0}, {"none/p.PER", 0, 0}, {"none/p.ini", 0, 1},
                                                       {"bad.ini", 0, 1},  {"null.PER", 2, 0},   {"null.ini", 2, 0}};
    for (const auto& [name, count, result] : lists) {
        EXPECT_EQ(HT_WritePaperFile(wide(directory.path(name)).c_str(), nullptr, count), result) << name;
    }
    EXPECT_FALSE(directory.exists("null.PER") || directory.exists("null.ini"));
}

TEST(EditPapers, GiveUpWhileAnotherWriterHoldsOn) {
    const TemporaryDirectory directory;
    const std::string path = directory.path("p.PER"), bytes = binaryFile(1, papersOf({9}));
    directory.write("p.PER", bytes);
    const WriterLock other(path);
    const auto stored = std::async(std::launch::async, [&] { EXPECT_EQ(store(path, 8), -1); });
    EXPECT_EQ(erase(path, 9), 0);
    stored.wait();
    EXPECT_EQ(directory.read("p.PER"), bytes);
}

TEST(EditPapers, DamagedCounts) {
    const TemporaryDirectory directory;
    const std::pair<const char*, std::string> more[] = {{"more.PER", binaryFile(INT_MAX, papersOf({9}))},
                                                        {"more.ini", "[General]\nPaperCount=2147483647\n"}};
    for (const auto& [name, bytes] : more) { // left alone
        const std::string path = directory.write(name, bytes);
        EXPECT_EQ(store(path, 9), -1) << name;
        EXPECT_EQ(erase(path, 9), 0) << name;
        EXPECT_EQ(directory.read(name), bytes) << name;
    }
    const std::string twoPapers = binaryFile(2, papersOf({9, 11}));
    EXPECT_EQ(store(directory.write("cut.PER", twoPapers.substr(0, twoPapers.size() - 4)), 257), 257);
    EXPECT_EQ(directory.read("cut.PER").size(), twoPapers.size() + 160); // the cut paper has its place all the same
    for (const auto& path :
         {directory.write("-2.PER", binaryFile(-2, {})), directory.write("-2.ini", "[General]\nPaperCount=-2\n")}) {
        EXPECT_THROW(store(path, 9), std::bad_array_new_length) << path;
        EXPECT_THROW(erase(path, 9), std::bad_array_new_length) << path;
    }
    EXPECT_THROW(erase(directory.write("-1.PER", binaryFile(-1, {})), 9), std::bad_array_new_length);
    for (const int request : {-1, 9}) { // one less than nothing and one more
        EXPECT_EQ(store(directory.write("-1.PER", binaryFile(-1, {})), request), request == 9 ? 9 : 257);
        EXPECT_EQ(directory.read("-1.PER"), binaryFile(0, {}));
    }
}

} // namespace
