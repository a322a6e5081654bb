// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/SettingsFile.h"

#include <QFileInfo>
#include <QSet>
#include <algorithm>

#include "keldriver/IniFile.h"

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

QString withoutQuotes(const std::string& value) {
    const size_t first = std::min(value.find_first_not_of('"'), value.size());
    const size_t end = value.find_last_not_of('"') + 1;
    return QString::fromStdString(value.substr(first, std::max(end, first) - first));
}

/// Reads a settings file; throws `SettingsError` where it cannot be read or is malformed.
void load(const QString& path, inifile::IniFile& file) {
    const QFileInfo info(path);
    if (!info.exists()) {
        throw SettingsError(path, QStringLiteral("no such file"));
    }
    if (!info.isFile()) {
        throw SettingsError(path, QStringLiteral("not a file"));
    }
    const int code = file.Load(path.toStdString());
    if (code != 0) {
        throw SettingsError(path, reasonOf(code, QString::fromStdString(file.GetErrMsg())));
    }
}

} // namespace

void requireSettings(const QString& path) {
    inifile::IniFile file;
    load(path, file);
}

std::optional<std::vector<Setting>> settingsFrom(const QString& path, const char* section) {
    inifile::IniFile file;
    load(path, file);
    const inifile::IniSection* const found = file.getSection(section);
    if (!found) {
        return std::nullopt;
    }
    std::vector<Setting> settings;
    QSet<QString> keys;
    for (const inifile::IniItem& item : found->items) {
        const QString key = QString::fromStdString(item.key);
        if (!keys.contains(key)) {
            keys << key;
            settings.push_back({key, withoutQuotes(item.value)});
        }
    }
    return settings;
}

} // namespace kelplot
