// SPDX-License-Identifier: BSD-3-Clause
#include "paper/IniPaperFile.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "paper/PaperPath.h"
#include "port/Utf8.h"
#include "port/WinRuntime.h"

namespace KelDriver::Internal {

namespace {

constexpr char generalSection[] = "General";
constexpr char countKey[] = "PaperCount";
constexpr char nameKey[] = "Name";
constexpr char largestSection[] = "MAXPAPERSIZE";
constexpr char largestWidthKey[] = "Weight"; // so spelled, as part of the interface
constexpr char largestLengthKey[] = "Height";
constexpr int largestByDefault = 1000000;

struct NumberKey {
    const char* key;
    int32_t PaperSize::*number;
    int32_t byDefault;
};

/// In the order in which they are written.
constexpr NumberKey numberKeys[] = {
    {"Paper", &PaperSize::Paper, 9},         {"Width", &PaperSize::Width, 2100},
    {"Length", &PaperSize::Length, 2970},    {"LeftEdge", &PaperSize::LeftEdge, 0},
    {"RightEdge", &PaperSize::RightEdge, 0}, {"DownEdge", &PaperSize::DownEdge, 0},
    {"UpEdge", &PaperSize::UpEdge, 0},       {"Units", &PaperSize::Units, 1},
};

std::string textOf(const wchar_t* format, int number) {
    wchar_t text[32]; // room for a section name of any index
    const int length = swprintf_s(text, format, number);
    return toUtf8({text, static_cast<size_t>(length)});
}

std::string sectionOf(int index) {
    return textOf(L"Paper %d", index);
}

std::string nameOf(const PaperSize& paper) {
    return toUtf8({paper.Name, static_cast<size_t>(std::find(paper.Name, std::end(paper.Name), L'\0') - paper.Name)});
}

void writeName(ProfileSession& session, const std::string& section, const PaperSize& paper) {
    try {
        session.writeString(section, nameKey, nameOf(paper));
    } catch (const std::range_error&) {
        if (session.isWritable()) { // no name reaches a file that cannot be written
            throw;
        }
    }
}

void writePaper(ProfileSession& session, int index, const PaperSize& paper) {
    const std::string section = sectionOf(index);
    writeName(session, section, paper);
    for (const NumberKey& each : numberKeys) {
        session.writeString(section, each.key, textOf(L"%d", paper.*each.number));
    }
}

} // namespace

IniPaperFile::IniPaperFile(const std::wstring& path)
    : m_session(toUtf8(path)), m_isUnreadable(!m_session.isRead() && pathExists(path)) {
}

int IniPaperFile::count() {
    return m_session.getInt(generalSection, countKey, 0);
}

PaperSize IniPaperFile::paper(int index) {
    const std::string section = sectionOf(index);
    PaperSize paper{};
    m_session.getString(section, nameKey, L"", paper.Name, std::size(paper.Name));
    for (const NumberKey& each : numberKeys) {
        paper.*each.number = m_session.getInt(section, each.key, each.byDefault);
    }
    return paper;
}

int32_t IniPaperFile::largestWidth() {
    return m_session.getInt(largestSection, largestWidthKey, largestByDefault);
}

int32_t IniPaperFile::largestLength() {
    return m_session.getInt(largestSection, largestLengthKey, largestByDefault);
}

bool writeIniPaperFile(const std::wstring& path, const PaperSize* papers, int count) {
    ProfileSession session(toUtf8(path));
    session.writeString(generalSection, countKey, textOf(L"%d", count));
    for (int i = 0; i < count; ++i) {
        writePaper(session, i, papers[i]);
    }
    return session.flush();
}

} // namespace KelDriver::Internal
