// SPDX-License-Identifier: BSD-3-Clause
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

TemporaryDirectory::TemporaryDirectory() {
    EXPECT_TRUE(directory.isValid()) << directory.errorString().toStdString();
}

std::string TemporaryDirectory::path(const std::string& name) const {
    return directory.filePath(QString::fromStdString(name)).toStdString();
}

std::string TemporaryDirectory::write(const std::string& name, const std::string& bytes) const {
    QFile file(QString::fromStdString(path(name)));
    const auto size = static_cast<qint64>(bytes.size());
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size;
    EXPECT_TRUE(isWritten) << path(name) << ": " << file.errorString().toStdString();
    return path(name);
}

std::string TemporaryDirectory::read(const std::string& name) const {
    QFile file(QString::fromStdString(path(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path(name) << ": " << file.errorString().toStdString();
    return file.readAll().toStdString();
}

bool TemporaryDirectory::exists(const std::string& name) const {
    return QFileInfo::exists(QString::fromStdString(path(name)));
}
