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

int openPlace(const std::string& file) {
    struct stat status {};
    const bool isLockedItself = stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink > 1;
    constexpr int flags = O_RDONLY | O_CLOEXEC;
    const int place = open(isLockedItself ? file.c_str() : folderOf(file).c_str(), flags);
    return place < 0 && errno == EACCES ? open(file.c_str(), flags) : place;
}

/// Whether a lock on the place still keeps the writers of a file out: it may have been replaced meanwhile.
bool isPlaceOf(const std::string& file, int place) {
    struct stat locked {};
    struct stat named {};
    return fstat(place, &locked) != 0 || S_ISDIR(locked.st_mode) || stat(file.c_str(), &named) != 0 ||
           (locked.st_dev == named.st_dev && locked.st_ino == named.st_ino);
}

} // namespace

WriterLock::WriterLock(const std::string& path, std::chrono::milliseconds patience) : m_place(-1) {
    const std::string file = resolvedPath(path);
    const auto end = std::chrono::steady_clock::now() + patience;
    do {
        m_place.reset(openPlace(file));
    } while (m_place.isOpen() && waitUntil(end) && !isPlaceOf(file, m_place.number()));
}

/// False when there is nothing more to wait for: the place cannot be locked, or time is up.
bool WriterLock::waitUntil(std::chrono::steady_clock::time_point end) {
    constexpr std::chrono::microseconds pause(300);
    while (flock(m_place.number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return false;
        }
        if (std::chrono::steady_clock::now() >= end) {
            m_isRefused = true;
            return false;
        }
        std::this_thread::sleep_for(pause);
    }
    return true;
}

WriterLock::~WriterLock() {
    if (m_place.isOpen() && !m_isRefused) {
        flock(m_place.number(), LOCK_UN); // a child process forked meanwhile would hold on to it
    }
}

} // namespace KelDriver::Internal
