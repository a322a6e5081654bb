// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <optional>
#include <stdexcept>
#include <vector>

namespace kelplot {

/// Why a file of settings cannot be used; the text names the file.
class SettingsError : public std::runtime_error {
public:
    SettingsError(const QString& path, const QString& reason)
        : std::runtime_error((path + QStringLiteral(": ") + reason).toStdString()) {}
};

/// Throws `SettingsError` when there is no such file or it is not wholly a settings file.
void requireSettings(const QString& path);

/// A key and its value, without quotes.
struct Setting {
    QString key;
    QString value;
};

/// What a section states, in its order; of several equal keys the first counts. Nothing when there is no such section.
/// Throws as `requireSettings` does.
std::optional<std::vector<Setting>> settingsFrom(const QString& path, const char* section);

} // namespace kelplot
