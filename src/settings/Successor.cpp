// SPDX-License-Identifier: BSD-3-Clause
#include "settings/Successor.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>

namespace KelDriver::Internal {

namespace {

std::string hiddenName() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    return ".keldriver-" + std::to_string(getpid()) + '-' + std::to_string(now);
}

/// Nameless where the file system knows such files.
int create(const std::string& folder, const std::string& name, mode_t mode) {
    const int nameless = open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    return nameless >= 0 ? nameless : open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
}

} // namespace

Successor::Successor(const std::string& folder, mode_t mode)
    : m_name(folder + hiddenName()), m_file(create(folder, m_name, mode)) {
    struct stat status {};
    m_isNamed = m_file.isOpen() && fstat(m_file.number(), &status) == 0 && status.st_nlink != 0;
}

Successor::~Successor() {
    if (m_isNamed) {
        std::remove(m_name.c_str());
    }
}

bool Successor::takeOwnerAndMode(const struct stat& old) {
    struct stat own {};
    if (fstat(m_file.number(), &own) != 0) {
        return false;
    }
    const bool isOwners = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
    if (!isOwners && fchown(m_file.number(), old.st_uid, old.st_gid) != 0) {
        return false;
    }
    return own.st_mode == old.st_mode || fchmod(m_file.number(), old.st_mode & 07777) == 0;
}

bool Successor::takePlaceOf(const std::string& path) {
    if (!m_isNamed) {
        const std::string nameless = "/proc/self/fd/" + std::to_string(m_file.number());
        m_isNamed = linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, m_name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    }
    if (!m_isNamed || !m_file.close() || std::rename(m_name.c_str(), path.c_str()) != 0) {
        return false;
    }
    m_isNamed = false;
    return true;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count == 0 || (count < 0 && errno != EINTR)) {
            return false;
        }
        bytes.remove_prefix(count > 0 ? static_cast<size_t>(count) : 0);
    }
    return true;
}

} // namespace KelDriver::Internal
