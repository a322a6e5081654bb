// SPDX-License-Identifier: BSD-3-Clause
#include "settings/TextFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#include "settings/Descriptor.h"

namespace KelDriver::Internal {

namespace {

/// How much to ask for at first; only a hint, because devices and pipes have no size.
size_t expectedSize(int file) {
    struct stat status {};
    const bool isRegular = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    return isRegular ? static_cast<size_t>(status.st_size) : 0;
}

} // namespace

std::optional<std::string> readTextFile(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) {
        return std::nullopt;
    }
    constexpr size_t step = 4096; // beyond the size, so that the end shows without the text growing
    std::string text(expectedSize(file.number()) + step, '\0');
    size_t length = 0;
    while (const ssize_t count = read(file.number(), &text[length], text.size() - length)) {
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
        length += count > 0 ? static_cast<size_t>(count) : 0;
        if (length == text.size()) {
            text.resize(2 * text.size());
        }
    }
    text.resize(length);
    return text;
}

} // namespace KelDriver::Internal
