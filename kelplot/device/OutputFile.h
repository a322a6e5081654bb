// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>
#include <memory>
#include <stdexcept>
#include <string>

namespace kelplot {

/// Why a plot could not be put out; the text names the file and the reason.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A file that appears under its name only when it is complete, and not at all when anything fails before.
/// What the name stood for until then stays untouched. Devices and pipes are written to as they are.
class OutputFile {
public:
    /// Opens a new file beside the named one, or throws `OutputError`.
    explicit OutputFile(const QString& path);

    /// Where to write; owned by this object.
    QIODevice& device() { return *m_file; }

    /// Writes all of `bytes`, or throws `OutputError`.
    void write(const QByteArray& bytes);

    /// Puts the finished file in its place, or throws `OutputError` if any byte could not be written.
    void commit();

private:
    QString m_path;
    std::unique_ptr<QFileDevice> m_file;
};

/// The error of `path` with its reason, as all messages about files are built.
OutputError outputError(const QString& path, const QString& reason);

} // namespace kelplot
