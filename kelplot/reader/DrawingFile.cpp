// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/DrawingFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

#include "reader/DrawingReader.h"
#include "reader/groups/BinaryGroupReader.h"

namespace kelplot {

namespace {

/// What other files begin with, and what to tell of them.
constexpr struct {
    std::string_view mark;
    std::string_view told;
} otherFiles[] = {
    {"\x1F\x8B", "is compressed by gzip; unpack it first"},
    {"PK\x03\x04", "is a ZIP archive; unpack it first"},
    {"%PDF-", "is a PDF document, not a drawing"},
    {"\x89PNG\r\n", "is a PNG picture, not a drawing"},
    {"\xFF\xD8\xFF", "is a JPEG picture, not a drawing"},
    {"GIF8", "is a GIF picture, not a drawing"},
    {"BM", "is a BMP picture, not a drawing"},
    {"II*", "is a TIFF picture, not a drawing"},
    {{"MM\0*", 4}, "is a TIFF picture, not a drawing"},
    {"RIFF", "is a RIFF file such as a WebP picture, not a drawing"},
    {"<svg", "is an SVG picture, not a drawing"},
    {"<?xml", "is an XML document such as an SVG picture, not a drawing"},
};

/// DWG drawings begin with the number of their format.
constexpr struct {
    std::string_view mark;
    std::string_view release;
} dwgReleases[] = {
    {"AC1032", "2018"}, {"AC1027", "2013"}, {"AC1024", "2010"}, {"AC1021", "2007"},     {"AC1018", "2004"},
    {"AC1015", "2000"}, {"AC1014", "14"},   {"AC1012", "13"},   {"AC1009", "11 or 12"}, {"AC1006", "10"},
    {"AC1005", "10"},   {"AC1004", "9"},    {"AC1003", "2.6"},  {"AC1002", "2.5"},      {"AC1001", "2.22"},
    {"AC2.22", "2.22"}, {"AC2.21", "2.21"}, {"AC2.10", "2.10"}, {"AC1.50", "2.05"},     {"AC1.40", "1.40"},
    {"AC1.2", "1.2"},
};

[[noreturn]] void refuse(ReadError::Reason reason, const std::string& path, const std::string& text) {
    throw ReadError(reason, path + ": " + text);
}

std::string beginningOf(std::istream& stream) {
    std::array<char, 32> start{};
    stream.read(start.data(), start.size());
    std::string read(start.data(), static_cast<size_t>(stream.gcount()));
    stream.clear();
    stream.seekg(0);
    return read;
}

/// What a file that begins so is, where it is no drawing that can be read; empty for all others.
std::string otherKind(std::string_view beginning) {
    for (const auto& kind : otherFiles) {
        if (beginning.compare(0, kind.mark.size(), kind.mark) == 0) {
            return std::string(kind.told);
        }
    }
    for (const auto& dwg : dwgReleases) {
        if (beginning.compare(0, dwg.mark.size(), dwg.mark) == 0) {
            return "is a DWG (release " + std::string(dwg.release) + ") drawing; save it as DXF";
        }
    }
    return {};
}

/// Opens a copy of what standard input holds, in a file without a name: drawings are read by their size, and from the
/// start more than once.
DrawingFile openStandardInput(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> copy(std::tmpfile(), &std::fclose);
    if (!copy) {
        refuse(ReadError::Reason::cannotOpen, path, "no temporary file: " + std::generic_category().message(errno));
    }
    std::array<char, size_t{1} << 16> buffer{};
    while (const size_t count = std::fread(buffer.data(), 1, buffer.size(), stdin)) {
        if (std::fwrite(buffer.data(), 1, count, copy.get()) != count) {
            refuse(ReadError::Reason::cannotOpen, path, "temporary file: " + std::generic_category().message(errno));
        }
    }
    if (std::ferror(stdin) != 0 || std::fflush(copy.get()) != 0) {
        refuse(ReadError::Reason::cannotOpen, path, std::generic_category().message(errno));
    }
    DrawingFile file;
    file.size = static_cast<std::uintmax_t>(std::ftell(copy.get()));
    file.stream.open("/proc/self/fd/" + std::to_string(fileno(copy.get())), std::ios::in | std::ios::binary);
    return file;
}

DrawingFile openNamedFile(const std::string& path) {
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
    return file;
}

} // namespace

DrawingFile openDrawingFile(const std::string& path) {
    DrawingFile file = path == "-" ? openStandardInput(path) : openNamedFile(path);
    if (!file.stream) {
        refuse(ReadError::Reason::cannotOpen, path, "cannot be read");
    }
    if (file.size == 0) {
        refuse(ReadError::Reason::notADrawing, path, "the file is empty");
    }
    const std::string beginning = beginningOf(file.stream);
    file.isBinary = isBinaryDrawing(beginning);
    if (const std::string kind = otherKind(beginning); !kind.empty()) {
        refuse(ReadError::Reason::notADrawing, path, kind);
    }
    return file;
}

} // namespace kelplot
