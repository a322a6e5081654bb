// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/Defaults.h"

#include <QDir>
#include <QFile>
#include <algorithm>

#include "settings/FontFile.h"
#include "settings/NearestNames.h"
#include "settings/PenFile.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

QString unknownDefault(const QString& path, const QString& key, const std::vector<Preset>& presets) {
    constexpr int mostNames = 2;
    QStringList known;
    for (const Preset& preset : presets) {
        known << preset.name;
    }
    const QStringList nearest =
        nearestNames(key, known, mostNames, [](const QString& name) { return name.toCaseFolded(); });
    return QStringLiteral("%1: \"%2\" is no default; the nearest are %3")
        .arg(path, key, nearest.join(QStringLiteral(", ")));
}

/// Keeps where a value was asked for, and has a path start from the folder of the file that names it.
void keepOrigin(const QString& folder, const QString& origin, const Setting& setting, Options& options) {
    if (setting.key == QLatin1String("paper")) {
        options.paperOrigin = origin;
    } else if (setting.key == QLatin1String("margins")) {
        options.marginsOrigin = origin;
    } else if (setting.key == QLatin1String("pens")) {
        options.pensFiles = QStringList(QDir(folder).filePath(setting.value));
    }
}

} // namespace

void applyDefaults(const QString& folder, const std::vector<Preset>& presets, Options& options) {
    const QString path = QDir(folder).filePath(QStringLiteral("kelplot.ini"));
    if (!QFile::exists(path)) {
        return;
    }
    if (holdsPens(path)) {
        options.pensFiles << path;
    }
    addFonts(path, options.style.fonts);
    for (const Setting& setting : settingsFrom(path, "Defaults").value_or(std::vector<Setting>())) {
        const auto preset =
            std::find_if(presets.begin(), presets.end(), [&](const Preset& each) { return each.name == setting.key; });
        if (preset == presets.end()) {
            options.warnings << unknownDefault(path, setting.key, presets);
        } else if (!setting.value.isEmpty()) {
            const QString origin = path + QStringLiteral(": ") + setting.key;
            try {
                preset->apply(options, setting.value);
            } catch (const UsageError& error) {
                throw SettingsError(origin, QString::fromUtf8(error.what()));
            }
            keepOrigin(folder, origin, setting, options);
        }
    }
}

} // namespace kelplot
