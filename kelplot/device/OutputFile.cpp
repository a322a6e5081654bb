// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/OutputFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace kelplot {
namespace {

/// A device or a pipe cannot be replaced by a finished file.
bool takesBytesOnly(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isFile() && !info.isDir();
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
    if (!m_file->open(QIODevice::WriteOnly)) {
        throw outputError(path, m_file->errorString());
    }
}

void OutputFile::write(const QByteArray& bytes) {
    if (m_file->write(bytes) != bytes.size()) {
        throw outputError(m_path, m_file->errorString());
    }
}

void OutputFile::commit() {
    auto* const saved = qobject_cast<QSaveFile*>(m_file.get());
    const bool complete = saved ? saved->commit() : m_file->flush() && m_file->error() == QFileDevice::NoError;
    if (!complete) {
        throw outputError(m_path, m_file->errorString());
    }
}

} // namespace kelplot
