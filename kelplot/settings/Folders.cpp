// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/Folders.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "keldriver/Utility.h"
#include "settings/SettingsFile.h"

namespace kelplot {

namespace {

QString folderBesideProgram() {
    QString folder = QString::fromWCharArray(VornGetAppDataPath());
    if (folder.isEmpty()) {
        throw SettingsError(QStringLiteral("Drivers"), QStringLiteral("the program's folder cannot be found"));
    }
    return folder;
}

/// Names a file at this place as it is now: one that is edited, or replaced by another, has another name.
QString stateOf(const QFileInfo& file) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(file.absoluteFilePath().toUtf8());
    hash.addData(QByteArray::number(file.metadataChangeTime().toMSecsSinceEpoch()));
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace

QString driverFolder() {
    const QString beside = folderBesideProgram();
    const QString installed = QDir::cleanPath(QFileInfo(beside).path() + QStringLiteral("/" KELPLOT_WAY_TO_DRIVERS));
    return QFile::exists(beside) || !QFile::exists(installed) ? beside : installed;
}

QString ownFolder() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("kelplot"));
}

QString driverCacheOf(const QString& file) {
    const QFileInfo info(file);
    const QString name = info.completeBaseName();
    QString beside = info.dir().filePath(name + QStringLiteral(".PER"));
    const bool mayWriteBeside = info.path() == folderBesideProgram() && QFileInfo(info.path()).isWritable();
    if (mayWriteBeside || QFile::exists(beside)) {
        return beside;
    }
    if (qEnvironmentVariableIsEmpty("HOME") && qEnvironmentVariableIsEmpty("XDG_CACHE_HOME")) {
        return {};
    }
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/kelplot/%1-%2.PER").arg(name, stateOf(info));
}

} // namespace kelplot
