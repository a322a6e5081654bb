// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <unistd.h>
#include <utility>

namespace KelDriver::Internal {

/// Owns a file descriptor, or none when its file could not be opened.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    /// Closes the file and owns another one.
    void reset(int number) {
        close();
        m_number = number;
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

    /// Whether the file closed without a fault: some file systems report a failed write only here.
    bool close() {
        const int number = std::exchange(m_number, -1);
        return number >= 0 && ::close(number) == 0;
    }

private:
    int m_number;
};

} // namespace KelDriver::Internal
