// SPDX-License-Identifier: BSD-3-Clause
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "keldriver/PrivateProfile.h"
#include "paper/PaperBytes.h"
#include "support/TemporaryDirectory.h"

namespace {

// The same list key by key, each with a profile call of its own.
void writeKeyByKey(const std::wstring& path, const std::vector<PaperSize>& papers) {
    const auto write = [&path](const std::wstring& section, const wchar_t* key, const std::wstring& value) {
        WritePrivateProfileStringEx(section.c_str(), key, value.c_str(), path.c_str());
    };
    write(L"General", L"PaperCount", std::to_wstring(papers.size()));
    for (size_t i = 0; i < papers.size(); ++i) {
        const PaperSize& paper = papers[i];
        const std::wstring section = L"Paper " + std::to_wstring(i);
        write(section, L"Name", std::wstring(paper.Name, wcsnlen(paper.Name, 64)));
        const std::pair<const wchar_t*, int32_t> numbers[] = {
            {L"Paper", paper.Paper},       {L"Width", paper.Width},         {L"Length", paper.Length},
            {L"LeftEdge", paper.LeftEdge}, {L"RightEdge", paper.RightEdge}, {L"DownEdge", paper.DownEdge},
            {L"UpEdge", paper.UpEdge},     {L"Units", paper.Units}};
        for (const auto& [key, value] : numbers) {
            write(section, key, std::to_wstring(value));
        }
    }
}

TEST(IniPaperFile, IsWrittenToTheByte) {
    const TemporaryDirectory directory;
    const std::string path =
        directory.write("p.ini", "#kept\n[Paper 1]\nName=left over\n[Paper 0]\n#lost\nName=x # kept\n");
    const PaperSize paper = paperOf(-9, L"\u00C5 4");
    EXPECT_EQ(HT_WritePaperFile(wide(path).c_str(), &paper, 1), 1);
    EXPECT_EQ(directory.read("p.ini"),
              "#kept\n[Paper 1]\nName=left over\n[Paper 0]\nName=\u00C5 4 #kept\nPaper=-9\nWidth=2100\nLength=2970\n"
              "LeftEdge=13\nRightEdge=14\nDownEdge=12\nUpEdge=11\nUnits=7\n[General]\nPaperCount=1\n");
}

TEST(IniPaperFile, EndsUpAsWrittenKeyByKey) {
    const char* files[] = {
        "",
        "[General] # note\nPaperCount=1\nOther=2\n[Paper 1] # note\n",
        "[Paper 0] # note\r\nName=a\r\nPaper=1\r\n[General]\r\n",
        "free=1\n\n# a\n[Paper 1]\nName=a\nName=b # c\n# d\nUnits=2\n# lost",
        "[General]\n[ Paper 0 ]\nPaperCount = 4\n#c\nWidth=1#2#3",
        "[Paper 0]\nmalformed\n",
        "[General]\n[General]\n",
    };
    const std::wstring names =
        L"A4|| padded\t|ANSI #1|#|a\nb=c|a\nb|a\n[x]|\n[Paper 1]|\n[|\n[]|a=b # c\n|a\n#|a\nName=b|\"q\"|"
        L"\r|a\n\n#|\xD800|a\n[General] # x\ny=z|" +
        std::wstring(64, L'\u20AC');
    const TemporaryDirectory directory;
    const auto written = [&](const char* file, const auto& write) {
        const std::wstring path = wide(directory.write("p.ini", file));
        try {
            write(path);
        } catch (const std::range_error&) {
            return directory.read("p.ini") + " and an error";
        }
        return directory.read("p.ini");
    };
    size_t pair = 0;
    for (const char* file : files) {
        std::wstringstream list(names);
        for (std::wstring name; std::getline(list, name, L'|');) {
            if (pair++ % 3 == 0) { // each file meets a third of the names: all that writing takes its time
                const std::vector<PaperSize> papers{paperOf(9, name), paperOf(8, L"last")};
                EXPECT_EQ(written(file, [&](auto& path) { HT_WritePaperFile(path.c_str(), papers.data(), 2); }),
                          written(file, [&](auto& path) { writeKeyByKey(path, papers); }))
                    << ::testing::PrintToString(file) << ::testing::PrintToString(name);
            }
        }
    }
}

} // namespace
