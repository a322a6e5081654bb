// SPDX-License-Identifier: BSD-3-Clause

// A binary paper file of any bytes under any capability code, then edited. The first two bytes are the code, the third
// tells the edit, the rest is the file.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <new>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "Require.h"
#include "keldriver/Paper.h"

namespace {

class PaperFile {
public:
    PaperFile() {
        std::string name = (std::filesystem::temp_directory_path() / "paper-fuzz-XXXXXX").string();
        require(mkdtemp(name.data()) != nullptr);
        m_directory = name;
    }
    PaperFile(const PaperFile&) = delete;
    PaperFile& operator=(const PaperFile&) = delete;
    ~PaperFile() {
        std::error_code ignored;
        std::filesystem::remove_all(m_directory, ignored);
    }

    std::wstring path() const { return (m_directory / "p.PER").wstring(); }

    void write(const uint8_t* data, size_t size) const {
        std::FILE* file = std::fopen((m_directory / "p.PER").c_str(), "wb");
        require(file != nullptr && std::fwrite(data, 1, size, file) == size && std::fclose(file) == 0);
    }

private:
    std::filesystem::path m_directory;
};

constexpr int mostPapers = 4096; // no buffer is made for more

/// Asks as a driver does: for the count, then with a buffer of just that many entries of the longest kind.
void query(unsigned short code, const std::wstring& path) {
    const int count = HT_DefaultDeviceCapabilities(code, nullptr, nullptr, path.c_str());
    if (count > mostPapers) {
        return;
    }
    const size_t entries = count > 0 ? static_cast<size_t>(count) : 0;
    std::vector<char> buffer(entries * sizeof(PaperSize) + 1);
    const int answer = HT_DefaultDeviceCapabilities(code, buffer.data(), nullptr, path.c_str());
    require(answer == count || answer == 0);
}

/// The papers that the file states and holds.
std::vector<PaperSize> papersOf(const std::wstring& path) {
    const int count = HT_DefaultDeviceCapabilities(19, nullptr, nullptr, path.c_str());
    std::vector<PaperSize> papers(count > 0 && count <= mostPapers ? static_cast<size_t>(count) : 0);
    if (!papers.empty()) {
        HT_DefaultDeviceCapabilities(19, reinterpret_cast<char*>(papers.data()), nullptr, path.c_str());
    }
    return papers;
}

void create(const PaperSize& paper, const std::wstring& path) {
    const int count = HT_DefaultDeviceCapabilities(19, nullptr, nullptr, path.c_str());
    const int number = HT_DefaultCreatePaper(nullptr, paper, path.c_str());
    if (number == -1 || count < 0 || count >= mostPapers) {
        return; // not stored, or not to be listed
    }
    const std::vector<PaperSize> papers = papersOf(path);
    const bool isListed = std::any_of(papers.begin(), papers.end(), [&](const PaperSize& each) {
        return each.Paper == number && each.Width == paper.Width && std::wcscmp(each.Name, paper.Name) == 0;
    });
    require(isListed);
}

void remove(int number, const std::wstring& path) {
    const size_t before = papersOf(path).size();
    require(HT_DefaultDeletePaper(nullptr, number, path.c_str()) != 1 || papersOf(path).size() + 1 >= before);
}

void edit(uint8_t way, const std::wstring& path) {
    try {
        if (way % 2 == 0) {
            create({way % 4 == 0 ? -1 : way, L"Edited", 2100, 2970, 1, 2, 3, 4, 1}, path);
        } else {
            remove(way, path);
        }
    } catch (const std::bad_array_new_length&) { // the agreed answer to a negative count
        return;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const PaperFile file;
    constexpr size_t choices = 3;
    if (size < choices) {
        return 0;
    }
    FuzzInput input(data, choices);
    const auto code = input.take<uint16_t>();
    file.write(data + choices, size - choices);
    const std::wstring path = file.path();
    for (const int each : {int{code}, 2, 16, 19}) {
        if (each != 13) { // asks for no list
            query(static_cast<unsigned short>(each), path);
        }
    }
    edit(input.take<uint8_t>(), path);
    query(19, path);
    return 0;
}
