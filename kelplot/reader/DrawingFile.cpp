// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/DrawingFile.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "reader/DrawingReader.h"

namespace kelplot {

namespace {

using namespace std::string_view_literals;

/// Binary drawings start with a sentence that has this part at this offset.
constexpr std::string_view binaryMark = " Binary DXF\r\n\x1A\0"sv;
constexpr size_t binaryMarkOffset = 7;

[[noreturn]] void refuse(ReadError::Reason reason, const std::string& path, const std::string& text) {
    throw ReadError(reason, path + ": " + text);
}

bool isBinaryDrawing(std::istream& stream) {
    std::array<char, binaryMarkOffset + binaryMark.size()> start{};
    stream.read(start.data(), start.size());
    const std::string_view read(start.data(), static_cast<size_t>(stream.gcount()));
    stream.clear();
    stream.seekg(0);
    return read.size() == start.size() && read.substr(binaryMarkOffset) == binaryMark;
}

} // namespace

DrawingFile openDrawingFile(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) {
        refuse(ReadError::Reason::cannotOpen, path, error ? error.message() : "no such file");
    }
    if (std::filesystem::is_directory(status)) {
        refuse(ReadError::Reason::cannotOpen, path, "is a directory");
    }
    if (!std::filesystem::is_regular_file(status)) {
        refuse(ReadError::Reason::cannotOpen, path, "is not a regular file");
    }
    DrawingFile file;
    errno = 0;
    file.stream.open(path, std::ios::in | std::ios::binary);
    if (!file.stream) {
        refuse(ReadError::Reason::cannotOpen, path, std::generic_category().message(errno));
    }
    file.size = std::filesystem::file_size(path, error);
    if (error) {
        refuse(ReadError::Reason::cannotOpen, path, error.message());
    }
    if (file.size == 0) {
        refuse(ReadError::Reason::notADrawing, path, "the file is empty");
    }
    if (isBinaryDrawing(file.stream)) {
        refuse(ReadError::Reason::notADrawing, path, "binary drawings cannot be read; save it as text");
    }
    return file;
}

} // namespace kelplot
