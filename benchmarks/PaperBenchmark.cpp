// SPDX-License-Identifier: BSD-3-Clause

// Paper files of a thousand papers, against one bare pass over the same settings file.
//
// Names read BM_<operation>/<side>; all work on an INI paper file of 1,000 papers. "bare" is what the operation cannot
// do without: one `Load` for a query, a `Load` and a `SaveAs` for writing.

#include <cstdio>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "keldriver/IniFile.h"
#include "keldriver/Paper.h"

namespace {

std::vector<PaperSize> manyPapers() {
    std::vector<PaperSize> papers(1000);
    int32_t number = 257;
    for (PaperSize& paper : papers) {
        paper = {number, {}, 2100 + number, 2970 + number, 50, 60, 70, 80, 1};
        swprintf(paper.Name, std::size(paper.Name), L"Roll %d x %d mm", paper.Width, paper.Length);
        ++number;
    }
    return papers;
}

/// An INI paper file of a thousand papers, removed at the end.
class PaperFile {
public:
    PaperFile() { HT_WritePaperFile(wide().c_str(), papers.data(), static_cast<int>(papers.size())); }
    PaperFile(const PaperFile&) = delete;
    PaperFile& operator=(const PaperFile&) = delete;
    ~PaperFile() { std::remove(path.c_str()); }

    std::wstring wide() const { return path.wstring(); }

    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("keldriver-papers-" + std::to_string(getpid()) + ".ini");
    const std::vector<PaperSize> papers = manyPapers();
};

void load(benchmark::State& state) {
    const PaperFile file;
    for (auto _ : state) {
        inifile::IniFile ini;
        benchmark::DoNotOptimize(ini.Load(file.path.string()));
    }
}

void query(benchmark::State& state) {
    const PaperFile file;
    std::vector<PaperSize> papers(file.papers.size());
    for (auto _ : state) {
        char* out = reinterpret_cast<char*>(papers.data());
        benchmark::DoNotOptimize(HT_DefaultDeviceCapabilities(19, out, nullptr, file.wide().c_str()));
    }
    if (papers.back().Width != file.papers.back().Width) {
        state.SkipWithError("not the papers that were written");
    }
}

void loadAndSave(benchmark::State& state) {
    const PaperFile file;
    for (auto _ : state) {
        inifile::IniFile ini;
        ini.Load(file.path.string());
        ini.SaveAs(file.path.string());
    }
}

void write(benchmark::State& state) {
    const PaperFile file;
    for (auto _ : state) {
        HT_WritePaperFile(file.wide().c_str(), file.papers.data(), static_cast<int>(file.papers.size()));
    }
}

/// The same into a file that does not exist yet.
void writeNew(benchmark::State& state) {
    const PaperFile file;
    for (auto _ : state) {
        state.PauseTiming();
        std::remove(file.path.c_str());
        state.ResumeTiming();
        HT_WritePaperFile(file.wide().c_str(), file.papers.data(), static_cast<int>(file.papers.size()));
    }
}

BENCHMARK(query)->Name("BM_Query/ours");
BENCHMARK(load)->Name("BM_Query/bare");
BENCHMARK(write)->Name("BM_Write/ours");
BENCHMARK(loadAndSave)->Name("BM_Write/bare");
BENCHMARK(writeNew)->Name("BM_WriteNew/ours");
BENCHMARK(loadAndSave)->Name("BM_WriteNew/bare");

} // namespace

BENCHMARK_MAIN();
