// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/OutputFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace kelplot {
namespace {

/// The file that is being written, as `abandonUnfinished` needs it.
struct Unfinished {
    QByteArray path;
    QByteArray temporary; ///< its path until it is complete; useless while the file has no name
};

Unfinished unfinished; // one plot is written at a time

/// A device or a pipe cannot be replaced by a finished file.
bool takesBytesOnly(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isFile() && !info.isDir();
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

OutputFile::OutputFile(const QString& path) : m_path(path) {
    if (takesBytesOnly(path)) {
        m_file = std::make_unique<QFile>(path);
    } else {
        m_file = std::make_unique<QSaveFile>(path);
    }
    if (!m_file->open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        throw outputError(path, m_file->errorString());
    }
    m_stream.emplace(*m_file);
    unfinished.path = path.toUtf8();
    if (qobject_cast<QSaveFile*>(m_file.get()) != nullptr) {
        const QString descriptor = QStringLiteral("/proc/self/fd/%1").arg(m_file->handle());
        unfinished.temporary = QFile::encodeName(QFile::symLinkTarget(descriptor));
    }
}

OutputFile::~OutputFile() {
    unfinished = {};
}

void OutputFile::write(const QByteArray& bytes) {
    m_stream->write(bytes);
    throwIfFailed(m_stream->failure());
}

void OutputFile::commit() {
    throwIfFailed(m_stream->failure());
    if (auto* const saved = qobject_cast<QSaveFile*>(m_file.get())) {
        throwIfFailed(syncFailure(*saved));
        if (!saved->commit()) {
            throw outputError(m_path, saved->errorString());
        }
    }
}

const char* OutputFile::abandonUnfinished() noexcept {
    unlink(unfinished.temporary.constData());
    return unfinished.path.constData();
}

void OutputFile::throwIfFailed(const QString& failure) const {
    if (!failure.isEmpty()) {
        throw outputError(m_path, failure);
    }
}

} // namespace kelplot
