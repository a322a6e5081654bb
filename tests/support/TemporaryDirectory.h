// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

#include <QTemporaryDir>

/// A directory of a test's own, removed with all its contents at the end of its scope.
class TemporaryDirectory {
public:
    TemporaryDirectory();

    /// The absolute path of an entry, whether it exists or not; of the directory itself for an empty name.
    std::string path(const std::string& name = {}) const;
    /// Writes a file byte for byte and returns its path. Fails the test when that is not possible.
    std::string write(const std::string& name, const std::string& bytes) const;
    /// The bytes of a file. Fails the test when it cannot be read.
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;

private:
    QTemporaryDir directory;
};
