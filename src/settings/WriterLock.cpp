// SPDX-License-Identifier: BSD-3-Clause
#include "settings/WriterLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

#include "settings/FilePlace.h"

namespace KelDriver::Internal {

namespace {

std::string placeToLock(const std::string& path) {
    std::string file = resolvedPath(path);
    struct stat status {};
    const bool isLockedItself = stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink > 1;
    return isLockedItself ? file : folderOf(file);
}

} // namespace

WriterLock::WriterLock(const std::string& path, std::chrono::milliseconds patience)
    : m_place(open(placeToLock(path).c_str(), O_RDONLY | O_CLOEXEC)) {
    constexpr std::chrono::microseconds pause(300);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (m_place.isOpen() && flock(m_place.number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return;
        }
        if (std::chrono::steady_clock::now() >= end) {
            m_isRefused = true;
            return;
        }
        std::this_thread::sleep_for(pause);
    }
}

WriterLock::~WriterLock() {
    if (m_place.isOpen() && !m_isRefused) {
        flock(m_place.number(), LOCK_UN); // a child process forked meanwhile would hold on to it
    }
}

} // namespace KelDriver::Internal
