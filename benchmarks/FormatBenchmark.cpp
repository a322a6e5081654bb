// SPDX-License-Identifier: BSD-3-Clause

// swprintf_s beside the platform's own swprintf, on formats that paper files and drivers use.
//
// Names read BM_Format/<ours or platform>/<format>. Both write to a buffer on the stack; the library also keeps the
// UTF-8 form of what it wrote.

#include <cwchar>
#include <iterator>
#include <string>

#include <benchmark/benchmark.h>

#include "port/Utf8.h"
#include "port/WinRuntime.h"

using namespace KelDriver::Internal;

namespace {

template <typename... Arguments>
void addFormat(const std::wstring& format, const std::wstring& platformFormat, Arguments... arguments) {
    const std::string name = "/" + toUtf8(format);
    benchmark::RegisterBenchmark(("BM_Format/ours" + name).c_str(), [=](benchmark::State& state) {
        wchar_t buffer[256];
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(swprintf_s(buffer, format.c_str(), arguments...));
        }
    });
    benchmark::RegisterBenchmark(("BM_Format/platform" + name).c_str(), [=](benchmark::State& state) {
        wchar_t buffer[256];
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(std::swprintf(buffer, std::size(buffer), platformFormat.c_str(), arguments...));
        }
    });
}

void addFormats() {
    addFormat(L"Paper%d", L"Paper%d", 42);
    addFormat(L"%d", L"%d", -123456);
    addFormat(L"%s", L"%ls", L"ISO A0 (841.00 x 1189.00 MM)");
    addFormat(L"%s\\%s.ini", L"%ls\\%ls.ini", L"/opt/application/Drivers", L"kelplot");
    addFormat(L"%08X", L"%08X", 0xBEEF);
    addFormat(L"%.2f x %.2f", L"%.2f x %.2f", 841.0, 1189.0);
    addFormat(L"%g", L"%g", 25.4);
    addFormat(L"%s (%d x %d, %.1f mm)", L"%ls (%d x %d, %.1f mm)", L"ANSI E", 864, 1118, 4.5);
}

} // namespace

int main(int argc, char** argv) {
    addFormats();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
