#pragma once

#include <QString>
#include <stdexcept>

namespace kelplot {

/// Why a file of settings cannot be used; the text names the file.
class SettingsError : public std::runtime_error {
public:
    SettingsError(const QString& path, const QString& reason)
        : std::runtime_error((path + QStringLiteral(": ") + reason).toStdString()) {}
};

/// The folder with the settings that belong to the program.
QString driverFolder();

/// The folder with the user's own settings. It need not exist.
QString ownFolder();

/// Throws `SettingsError` when there is no such file or it is not wholly a settings file.
void requireSettings(const QString& path);

/// The value of a key; empty when the file does not state it.
QString settingFrom(const QString& path, const char* section, const QString& key);

} // namespace kelplot
