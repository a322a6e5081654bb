// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "device/WholeStream.h"

namespace kelplot {

/// Why a plot could not be written; the text names the file and the reason.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A file that appears under its name only when it is complete, and not at all if anything fails first. Until then
/// whatever had the name stays untouched. Devices and pipes are written to as they are, and so is standard output,
/// which is called "-".
class OutputFile {
public:
    /// Opens a new file beside the named one, or throws `OutputError`.
    explicit OutputFile(const QString& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Where to write; owned by this object. There is no need to check it for failures: `commit` does.
    QIODevice& device() { return *m_stream; }

    /// Writes all of `bytes`, or throws `OutputError`.
    void write(const QByteArray& bytes);

    /// Throws `OutputError` if any byte so far could not be written.
    void check() const;

    /// Puts the finished file in its place, or throws `OutputError` if any byte could not be written.
    void commit();

    /// Removes what there is of the file that is being written, for a program that ends without its destructors.
    /// Takes no memory, and may be called by a signal's handler.
    /// @return the path that was asked for; empty when no file is being written
    static const char* abandonUnfinished() noexcept;

private:
    void throwIfFailed(const QString& failure) const;

    QString m_path;
    std::unique_ptr<QFileDevice> m_file;
    std::optional<WholeStream> m_stream; ///< set from construction on
};

/// The error of `path` with its reason, as all messages about files are built.
OutputError outputError(const QString& path, const QString& reason);

} // namespace kelplot
