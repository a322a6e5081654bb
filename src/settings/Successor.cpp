// SPDX-License-Identifier: BSD-3-Clause
#include "settings/Successor.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <utility>

namespace KelDriver::Internal {

namespace {

constexpr char usualName[] = ".keldriver-new";

/// For use beside a live file of the usual name.
std::string uniqueName() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    return usualName + ('-' + std::to_string(getpid())) + '-' + std::to_string(now);
}

/// Removes what a killed writer left; false when it is in use.
bool removeAbandoned(const std::string& name) {
    const Descriptor file(open(name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return file.isOpen() && flock(file.number(), LOCK_EX | LOCK_NB) == 0 && unlink(name.c_str()) == 0;
}

/// Calls `take` with names, for as long as files of these names are in the way, and returns the name taken; empty when
/// it fails for another reason.
template <typename Take>
std::string takeName(const std::string& folder, const Take& take) {
    std::string usual = folder + usualName;
    if (take(usual) || (errno == EEXIST && removeAbandoned(usual) && take(usual))) {
        return usual;
    }
    const std::string unique = folder + uniqueName();
    return errno == EEXIST && take(unique) ? unique : std::string();
}

} // namespace

Successor::Successor(std::string folder, mode_t mode)
    : m_folder(std::move(folder)), m_file(open(m_folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode)), m_lock(-1) {
    if (!m_file.isOpen()) {
        m_name = takeName(m_folder, [&](const std::string& name) {
            m_file.reset(open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode));
            return m_file.isOpen();
        });
    }
    if (m_file.isOpen()) {
        m_lock.reset(fcntl(m_file.number(), F_DUPFD_CLOEXEC, 0));
        flock(m_file.number(), LOCK_EX | LOCK_NB);
    }
}

Successor::~Successor() {
    if (!m_name.empty()) {
        std::remove(m_name.c_str());
    }
}

bool Successor::takeRightsOf(const struct stat& old) {
    // A folder may give new files an access list, which would let in more than the mode of the old one says.
    if (fremovexattr(m_file.number(), "system.posix_acl_access") != 0 && errno != ENODATA && errno != ENOTSUP) {
        return false;
    }
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
    if (m_name.empty()) {
        const std::string nameless = "/proc/self/fd/" + std::to_string(m_file.number());
        m_name = takeName(m_folder, [&](const std::string& name) {
            return linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
        });
    }
    if (m_name.empty() || !m_file.close() || std::rename(m_name.c_str(), path.c_str()) != 0) {
        return false;
    }
    m_name.clear();
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
