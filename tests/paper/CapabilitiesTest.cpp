// SPDX-License-Identifier: BSD-3-Clause
#include <climits>
#include <map>
#include <stdexcept>

#include <gtest/gtest.h>

#include "paper/PaperBytes.h"
#include "support/TemporaryDirectory.h"

namespace {

constexpr int paperCodes[] = {2, 3, 9, 16, 19, 65};

constexpr char iniText[] = "[General]\nPaperCount=3\n"
                           "[Paper 0]\nName=\"A4\"\nPaper=8\nWidth=1\nLength=2\nLeftEdge=3\nUpEdge=4\nRightEdge=5\n"
                           "DownEdge=-6\nUnits=0\n"
                           "[Paper 1]\nName=One\nName=Two\nPaper=65541\n"
                           "[MAXPAPERSIZE]\nWeight=9140\n";

const std::vector<PaperSize> papersOfIni = {{8, L"A4", 1, 2, 4, -6, 3, 5, 0},
                                            {65541, L"One\0Two", 2100, 2970, 0, 0, 0, 0, 1},
                                            {9, L"", 2100, 2970, 0, 0, 0, 0, 1}};

const std::string largest = "0:" + number(9140) + number(1000000);

std::string entriesOf(const std::vector<PaperSize>& papers, int code) {
    std::string entries;
    for (const PaperSize& p : papers) {
        const std::string whole = record(p, 4), name = whole.substr(4, 256);
        const std::map<int, std::string> parts = {
            {2, number(p.Paper, 2)},
            {3, number(p.Width) + number(p.Length)},
            {9, name},
            {16, name},
            {19, whole},
            {65, number(p.LeftEdge) + number(p.UpEdge) + number(p.RightEdge) + number(p.DownEdge)}};
        entries += parts.at(code);
    }
    return entries;
}

TEST(Capabilities, AreAnsweredFromIniFile) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("Пapers.ini", iniText);
    for (const int code : paperCodes) {
        EXPECT_EQ(ask(code, path), "3:" + entriesOf(papersOfIni, code)) << code;
        EXPECT_EQ(countOf(code, path), 3) << code;
    }
    EXPECT_EQ(ask(20, path), largest);
    EXPECT_EQ(countOf(20, path), 0);
    for (const int code : {0, 1, 4, 17, 65535}) {
        EXPECT_EQ(ask(code, path), "0:") << code;
    }
    for (const char* text : {"", "[General]\nPaperCount=2\nmalformed\n", "[General]\nPaperCount=none"}) {
        EXPECT_EQ(ask(19, directory.write("bad.ini", text)), "0:") << text;
    }
    EXPECT_EQ(ask(19, directory.write("bad.ini", "[General]\nPaperCount=-5")), "-5:");
}

TEST(Capabilities, ResolutionsNeedNoFile) {
    const TemporaryDirectory directory;
    for (const std::string& path :
         {directory.path("none.ini"), directory.path("none.PER"), directory.write("x.PER", "")}) {
        EXPECT_EQ(ask(13, path),
                  "3:" + number(150) + number(150) + number(300) + number(300) + number(600) + number(600));
        EXPECT_EQ(countOf(13, path), 3);
    }
    EXPECT_FALSE(directory.exists("none.PER"));
    EXPECT_THROW(HT_DefaultDeviceCapabilities(13, nullptr, nullptr, L"ER"), std::out_of_range);
}

TEST(Capabilities, MissingBinaryFileIsMadeFromIniFile) {
    const TemporaryDirectory directory;
    directory.write("p.ini", iniText);
    for (const char* name : {"p.PER", "p.pEr", "paper"}) { // the last one loses four characters, too
        SCOPED_TRACE(name);
        const std::string path = directory.path(name);
        EXPECT_EQ(ask(20, path), largest);
        EXPECT_EQ(ask(2, path), "3:" + entriesOf(papersOfIni, 2));
        EXPECT_EQ(countOf(19, path), 3);
        ASSERT_FALSE(directory.exists(name));
        EXPECT_EQ(ask(19, path), "3:" + entriesOf(papersOfIni, 19));
        EXPECT_EQ(directory.read(name), binaryFile(3, papersOfIni));
        EXPECT_EQ(ask(19, path), "3:" + entriesOf(papersOfIni, 19));
        // Compact records are not for these; nor does a binary file tell the largest paper.
        for (const int code : {2, 3, 9, 16, 65, 20}) {
            EXPECT_EQ(ask(code, path, 1 << 12).substr(0, 2), "0:") << code;
            EXPECT_EQ(countOf(code, path), code == 20 ? 0 : 3) << code;
        }
    }
    EXPECT_EQ(ask(19, directory.path("none.PER")), "0:");
    EXPECT_EQ(directory.read("none.PER"), binaryFile(0, {}));
}

TEST(Capabilities, WholeRecordsAnswerAllOtherCodes) {
    const TemporaryDirectory directory;
    std::vector<PaperSize> papers{paperOf(8, L"\U0001F5BA"), paperOf(9, std::wstring(64, L'x')), paperOf(10, L"A")};
    papers[2].Name[2] = L'?'; // after the terminator
    std::string bytes = binaryFile(3, papers, 4);
    bytes.replace(21, 3, "any");
    const std::string path = directory.write("p.PER", bytes);
    papers[2].Name[2] = L'\0';
    for (const int code : {2, 3, 9, 16, 65}) {
        EXPECT_EQ(ask(code, path), "3:" + entriesOf(papers, code)) << code;
    }
    directory.write("p.PER", bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(ask(2, path), "0:");
}

TEST(Capabilities, DamagedBinaryFileAnswersNothing) {
    const TemporaryDirectory directory;
    const std::string good = binaryFile(1, {paperOf(9, L"A4")}, 4);
    for (size_t i = 4; i < 21; ++i) {
        std::string bytes = good;
        ++bytes[i];
        directory.write("p.PER", bytes);
        EXPECT_EQ(countOf(2, directory.path("p.PER")), 0) << i;
        EXPECT_EQ(ask(19, directory.path("p.PER")).substr(0, 2), "0:") << i;
    }
    for (const size_t length : {size_t{0}, size_t{23}, size_t{24}, size_t{27}}) {
        EXPECT_EQ(countOf(19, directory.write("p.PER", good.substr(0, length))), 0) << length;
    }
    for (const int count : {-1, INT_MIN, INT_MAX}) {
        const std::string path = directory.write("p.PER", binaryFile(count, {paperOf(9, L"A4")}, 4));
        EXPECT_EQ(countOf(2, path), count);
        EXPECT_EQ(ask(2, path).substr(0, 2), "0:") << count;
    }
    EXPECT_EQ(ask(19, directory.write("p.PER", binaryFile(-2, {}))), "-2:");
    // Every entry is filled; what the file lacks is zero.
    const std::string compact = binaryFile(3, {paperOf(9, L"A4"), paperOf(5, L"")});
    const std::string cut = directory.write("p.PER", compact.substr(0, 28 + 160 + 2));
    EXPECT_EQ(ask(19, cut), "3:" + record(paperOf(9, L"A4"), 4) + number(5) + std::string(288 * 2 - 4, '\0'));
}

} // namespace
