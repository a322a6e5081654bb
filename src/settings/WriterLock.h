// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <chrono>
#include <string>

#include "settings/Descriptor.h"

namespace KelDriver::Internal {

/// Makes the writers of a file take turns, in all programs and threads, while it lives: from their reading of the
/// file to their writing it back.
///
/// It locks (`flock`) the file's folder, because the file itself is replaced on writing and a lock file would be left
/// lying about. It locks the file instead when it has several names, and so is not replaced, or when this process may
/// not read the folder. Not to be nested: a second lock waits for the first. It binds only those who ask for it:
/// readers go without, and find files whole unless they are written over in their place.
class WriterLock {
public:
    /// Waits for its turn, but not for ever: a program that hangs must not keep others from their settings.
    explicit WriterLock(const std::string& path, std::chrono::milliseconds patience = std::chrono::seconds(2));
    WriterLock(const WriterLock&) = delete;
    WriterLock& operator=(const WriterLock&) = delete;
    ~WriterLock();

    /// Whether another writer held the lock all the time. A folder that cannot be locked at all, as on some network
    /// file systems, does not count: its writers do not wait.
    bool isRefused() const { return m_isRefused; }

private:
    bool waitUntil(std::chrono::steady_clock::time_point end);

    Descriptor m_place;
    bool m_isRefused = false;
};

} // namespace KelDriver::Internal
