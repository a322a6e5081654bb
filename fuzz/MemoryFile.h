// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

#include "Require.h"

/// A file in memory, with a path under which code that opens files finds it.
class MemoryFile {
public:
    MemoryFile() : m_descriptor(memfd_create("fuzz", 0)) {}
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(m_descriptor); }

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

    void write(std::string_view text) const {
        require(ftruncate(m_descriptor, 0) == 0);
        require(pwrite(m_descriptor, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()));
    }

    std::string read() const {
        std::string text(static_cast<size_t>(lseek(m_descriptor, 0, SEEK_END)), '\0');
        require(pread(m_descriptor, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()));
        return text;
    }

private:
    int m_descriptor;
};
