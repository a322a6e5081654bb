// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "keldriver/Paper.h"
#include "port/Utf8.h"

// The bytes of paper files and of answers, spelled out field by field.

inline std::string number(int64_t value, size_t size = 4) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    }
    return bytes;
}

inline std::string record(const PaperSize& paper, size_t characterSize) {
    std::string bytes = number(paper.Paper);
    for (const wchar_t character : paper.Name) {
        bytes += number(character, characterSize);
    }
    return bytes + number(paper.Width) + number(paper.Length) + number(paper.UpEdge) + number(paper.DownEdge) +
           number(paper.LeftEdge) + number(paper.RightEdge) + number(paper.Units);
}

inline std::string binaryFile(int count, const std::vector<PaperSize>& papers, size_t characterSize = 2) {
    std::string bytes = std::string("\x18\0\0\0VORNPAPER20120910\0\0\0", 24) + number(count);
    for (const PaperSize& paper : papers) {
        bytes += record(paper, characterSize);
    }
    return bytes;
}

/// A paper whose other fields all differ.
inline PaperSize paperOf(int32_t number, const std::wstring& name) {
    PaperSize paper{number, {}, 2100, 2970, 11, 12, 13, 14, 7};
    std::wmemcpy(paper.Name, name.data(), name.size());
    return paper;
}

inline std::wstring wide(const std::string& path) {
    return KelDriver::Internal::fromUtf8(path);
}

/// What a query answers, a colon, and what it wrote in front of a filler of 'U'.
inline std::string ask(int code, const std::string& path, size_t room = 2000) {
    std::string buffer = '\0' + std::string(room, 'U'); // the buffer proper is unaligned
    const int result =
        HT_DefaultDeviceCapabilities(static_cast<unsigned short>(code), &buffer[1], nullptr, wide(path).c_str());
    return std::to_string(result) + ':' + buffer.substr(1, buffer.find_last_not_of('U'));
}

inline int countOf(int code, const std::string& path) {
    return HT_DefaultDeviceCapabilities(static_cast<unsigned short>(code), nullptr, nullptr, wide(path).c_str());
}
