#include "settings/SettingsFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <array>

#include "keldriver/IniFile.h"
#include "keldriver/PrivateProfile.h"
#include "keldriver/Utility.h"

namespace kelplot {
namespace {

QString reasonOf(int code, const QString& message) {
    switch (code) {
    case 2:
        return QStringLiteral("the header of a section has no closing bracket");
    case 3:
        return QStringLiteral("the header of a section has no name");
    case 4:
        return QStringLiteral("two sections have the same name (%1)").arg(message);
    case 5:
        return QStringLiteral("a line is neither KEY=VALUE nor [SECTION] nor a comment (%1)").arg(message);
    default:
        return QStringLiteral("cannot be read");
    }
}

} // namespace

QString driverFolder() {
    return QString::fromWCharArray(VornGetAppDataPath());
}

QString ownFolder() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("kelplot"));
}

void requireSettings(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) {
        throw SettingsError(path, QStringLiteral("no such file"));
    }
    if (!info.isFile()) {
        throw SettingsError(path, QStringLiteral("not a file"));
    }
    inifile::IniFile file;
    const int code = file.Load(path.toStdString());
    if (code != 0) {
        throw SettingsError(path, reasonOf(code, QString::fromStdString(file.GetErrMsg())));
    }
}

QString settingFrom(const QString& path, const char* section, const QString& key) {
    std::array<wchar_t, 4096> value{};
    GetPrivateProfileStringEx(QString::fromLatin1(section).toStdWString().c_str(), key.toStdWString().c_str(), L"",
                              value.data(), static_cast<unsigned int>(value.size()), path.toStdWString().c_str());
    return QString::fromWCharArray(value.data());
}

} // namespace kelplot
