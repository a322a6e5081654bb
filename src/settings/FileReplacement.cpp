// SPDX-License-Identifier: BSD-3-Clause
#include "settings/FileReplacement.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "settings/Descriptor.h"
#include "settings/FilePlace.h"
#include "settings/Successor.h"

namespace KelDriver::Internal {

namespace {

constexpr mode_t modeOfNewFiles = 0666; // less what the process masks

enum class Outcome {
    Done,
    Failed,       ///< for lack of room, for example: the file is to stay as it is
    Unreplaceable ///< the file has to be written over
};

/// Whether overwriting the file in place would meet the same shortage, so that it is better left alone.
bool isOutOfResources() {
    return errno == ENOSPC || errno == EDQUOT || errno == EIO || errno == EMFILE || errno == ENFILE || errno == ENOMEM;
}

/// Writing beyond the limit would end the process by a signal.
bool isWithinSizeLimit(size_t size) {
    rlimit limit{};
    return getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY || size <= limit.rlim_cur;
}

/// Access lists and a person's own attributes stay with the inode. The system sets those of security modules by itself.
bool hasOwnAttributes(int file) {
    char names[1024];
    const ssize_t length = flistxattr(file, names, sizeof names);
    if (length < 0) {
        return errno != ENOTSUP;
    }
    std::string_view rest(names, static_cast<size_t>(length));
    while (!rest.empty()) {
        if (rest.rfind("security.", 0) != 0) {
            return true;
        }
        rest.remove_prefix(std::min(rest.find('\0') + 1, rest.size()));
    }
    return false;
}

/// Whether another file of the name `path` could stand for the one that `status` describes.
bool isReplaceable(int file, const struct stat& status, const std::string& path) {
    struct stat named {};
    return status.st_nlink == 1 && stat(path.c_str(), &named) == 0 && named.st_dev == status.st_dev &&
           named.st_ino == status.st_ino && !hasOwnAttributes(file);
}

/// @param old  of the file that is replaced; null when there is none
Outcome replace(const std::string& path, const struct stat* old, std::string_view bytes) {
    constexpr mode_t ownersOnly = 0600; // until it has the old one's
    Successor successor(folderOf(path), old != nullptr ? ownersOnly : modeOfNewFiles);
    if (!successor.isOpen()) {
        return isOutOfResources() ? Outcome::Failed : Outcome::Unreplaceable;
    }
    if (old != nullptr && !successor.takeRightsOf(*old)) {
        return Outcome::Unreplaceable;
    }
    if (!writeAll(successor.number(), bytes)) {
        return Outcome::Failed;
    }
    if (!successor.takePlaceOf(path)) {
        return isOutOfResources() ? Outcome::Failed : Outcome::Unreplaceable;
    }
    return Outcome::Done;
}

/// Allocates the room that is missing before it touches what is there.
bool overwrite(int file, std::string_view bytes, off_t oldSize) {
    const size_t kept = std::min(bytes.size(), static_cast<size_t>(oldSize));
    if (lseek(file, oldSize, SEEK_SET) < 0 || !writeAll(file, bytes.substr(kept))) {
        [[maybe_unused]] const int result = ftruncate(file, oldSize); // should it fail, nothing else would help
        return false;
    }
    return lseek(file, 0, SEEK_SET) == 0 && writeAll(file, bytes.substr(0, kept)) &&
           ftruncate(file, static_cast<off_t>(bytes.size())) == 0;
}

bool writeNew(const std::string& path, std::string_view bytes) {
    struct stat link {};
    const Outcome outcome = lstat(path.c_str(), &link) != 0 ? replace(path, nullptr, bytes) : Outcome::Unreplaceable;
    if (outcome != Outcome::Unreplaceable) {
        return outcome == Outcome::Done;
    }
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, modeOfNewFiles)); // where a link leads to
    return file.isOpen() && overwrite(file.number(), bytes, 0) && file.close();
}

bool writeOver(Descriptor& file, const struct stat& status, const std::string& path, std::string_view bytes) {
    const Outcome outcome =
        isReplaceable(file.number(), status, path) ? replace(path, &status, bytes) : Outcome::Unreplaceable;
    if (outcome != Outcome::Unreplaceable) {
        return outcome == Outcome::Done;
    }
    return overwrite(file.number(), bytes, status.st_size) && file.close();
}

} // namespace

bool writeFile(const std::string& path, std::string_view bytes) {
    Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC)); // a file that may not be written is not replaced either
    if (!file.isOpen()) {
        return errno == ENOENT && isWithinSizeLimit(bytes.size()) && writeNew(path, bytes);
    }
    struct stat status {};
    if (fstat(file.number(), &status) != 0) {
        return false;
    }
    if (!S_ISREG(status.st_mode)) {
        return writeAll(file.number(), bytes) && file.close();
    }
    return isWithinSizeLimit(bytes.size()) && writeOver(file, status, resolvedPath(path), bytes);
}

void createFile(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, modeOfNewFiles));
}

} // namespace KelDriver::Internal
