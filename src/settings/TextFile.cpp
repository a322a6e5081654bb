// SPDX-License-Identifier: BSD-3-Clause
#include "settings/TextFile.h"

#include <cstdio>
#include <memory>

#include <sys/stat.h>

namespace KelDriver::Internal {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); } // only read from: nothing left to fail
};

using FilePtr = std::unique_ptr<std::FILE, CloseFile>;

/// How much to ask for at first; only a hint, because devices and pipes have no size.
size_t expectedSize(std::FILE* file) {
    struct stat status {};
    const bool isRegular = fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode);
    return isRegular ? static_cast<size_t>(status.st_size) : 0;
}

} // namespace

std::optional<std::string> readTextFile(const std::string& path) {
    const FilePtr file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        return std::nullopt;
    }
    std::setvbuf(file.get(), nullptr, _IONBF, 0); // the text is the buffer
    constexpr size_t step = 4096;
    std::string text(expectedSize(file.get()) + step, '\0'); // the end of the file shows in the first read
    size_t length = 0;
    while (const size_t count = std::fread(&text[length], 1, text.size() - length, file.get())) {
        length += count;
        if (length < text.size()) {
            break;
        }
        text.resize(2 * text.size());
    }
    if (std::ferror(file.get()) != 0) {
        return std::nullopt;
    }
    text.resize(length);
    return text;
}

} // namespace KelDriver::Internal
