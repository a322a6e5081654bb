// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/OutputFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <unistd.h>

namespace kelplot {
namespace {

/// The file that is being written, as `abandonUnfinished` needs it: in memory that stays where it is.
struct Unfinished {
    std::array<char, PATH_MAX> path{};
    std::array<char, PATH_MAX> temporary{}; ///< its path until it is complete; empty while the file has no name
};

Unfinished unfinished; // one plot is written at a time

/// A path that does not fit is left out: it could not be opened either.
void keepPath(const QByteArray& path, std::array<char, PATH_MAX>& kept) {
    kept[0] = '\0';
    if (static_cast<size_t>(path.size()) < kept.size()) {
        std::copy(path.begin(), path.end() + 1, kept.begin());
    }
}

/// Puts off the signals that end the program while a file takes its name.
class SignalPause {
public:
    SignalPause() {
        sigset_t stops;
        sigemptyset(&stops);
        for (const int stop : {SIGINT, SIGTERM, SIGHUP}) {
            sigaddset(&stops, stop);
        }
        pthread_sigmask(SIG_BLOCK, &stops, &m_before);
    }
    ~SignalPause() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalPause(const SignalPause&) = delete;
    SignalPause& operator=(const SignalPause&) = delete;

private:
    sigset_t m_before{};
};

/// A device, a pipe or a file that somebody has open cannot be replaced by a finished file.
bool takesBytesOnly(const QString& path) {
    const QFileInfo info(path);
    return path.startsWith(QLatin1String("/dev/fd/")) || (info.exists() && !info.isFile() && !info.isDir());
}

/// Flushes a file's bytes to the disk: some file systems notice only then that they have no room for them.
/// @return why it failed; empty when it did not, or when the file system does not support it
QString syncFailure(const QFileDevice& file) {
    if (fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOSYS) {
        return {};
    }
    return QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

OutputError outputError(const QString& path, const QString& reason) {
    return OutputError((path + QStringLiteral(": ") + reason).toStdString());
}

OutputFile::OutputFile(const QString& path)
    : m_path(path == QLatin1String("-") ? QStringLiteral("standard output") : path) {
    constexpr auto mode = QIODevice::WriteOnly | QIODevice::Unbuffered;
    const SignalPause pause; // until the file is known
    bool isOpen = false;
    if (path == QLatin1String("-")) {
        auto stream = std::make_unique<QFile>();
        isOpen = stream->open(STDOUT_FILENO, mode);
        m_file = std::move(stream);
    } else if (takesBytesOnly(path)) {
        m_file = std::make_unique<QFile>(path);
        isOpen = m_file->open(mode);
    } else {
        m_file = std::make_unique<QSaveFile>(path);
        isOpen = m_file->open(mode);
    }
    if (!isOpen) {
        throw outputError(m_path, m_file->errorString());
    }
    m_stream.emplace(*m_file);
    keepPath(path.toUtf8(), unfinished.path);
    if (qobject_cast<QSaveFile*>(m_file.get()) != nullptr) {
        const QString descriptor = QStringLiteral("/proc/self/fd/%1").arg(m_file->handle());
        keepPath(QFile::encodeName(QFile::symLinkTarget(descriptor)), unfinished.temporary);
    }
}

OutputFile::~OutputFile() {
    const SignalPause pause; // until it is gone
    m_stream.reset();
    m_file.reset();
    keepPath({}, unfinished.temporary);
    keepPath({}, unfinished.path);
}

void OutputFile::write(const QByteArray& bytes) {
    m_stream->write(bytes);
    check();
}

void OutputFile::check() const {
    throwIfFailed(m_stream->failure());
}

void OutputFile::commit() {
    check();
    if (auto* const saved = qobject_cast<QSaveFile*>(m_file.get())) {
        throwIfFailed(syncFailure(*saved));
        const SignalPause pause;
        if (!saved->commit()) {
            throw outputError(m_path, saved->errorString());
        }
        keepPath({}, unfinished.temporary);
    }
}

const char* OutputFile::abandonUnfinished() noexcept {
    unlink(unfinished.temporary.data());
    return unfinished.path.data();
}

void OutputFile::throwIfFailed(const QString& failure) const {
    if (!failure.isEmpty()) {
        throw outputError(m_path, failure);
    }
}

} // namespace kelplot
