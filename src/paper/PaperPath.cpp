// SPDX-License-Identifier: BSD-3-Clause
#include "paper/PaperPath.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <unistd.h>

#include "port/Utf8.h"

namespace KelDriver::Internal {

namespace {

constexpr std::wstring_view ending = L"PER";

} // namespace

void requirePaperPath(const std::wstring& path) {
    if (path.size() < ending.size()) {
        throw std::out_of_range("paper file path of less than three characters");
    }
}

bool isBinaryPaperPath(const std::wstring& path) {
    requirePaperPath(path);
    return std::equal(ending.rbegin(), ending.rend(), path.rbegin(),
                      [](wchar_t capital, wchar_t character) { // independent of the locale
                          return character == capital || character == capital - L'A' + L'a';
                      });
}

std::wstring iniPathBeside(const std::wstring& binaryPath) {
    constexpr size_t dropped = 4;
    const size_t kept = binaryPath.size() < dropped ? binaryPath.size() : binaryPath.size() - dropped;
    return binaryPath.substr(0, kept) + L".ini";
}

bool pathExists(const std::wstring& path) {
    return access(toUtf8(path).c_str(), F_OK) == 0;
}

} // namespace KelDriver::Internal
