// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/options/Defaults.h"

#include <QDir>
#include <QFile>
#include <algorithm>

#include "cli/options/OptionTable.h"
#include "settings/FontSection.h"
#include "settings/NearestNames.h"
#include "settings/PenSection.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

/// The options that the settings may state.
std::vector<const OptionRow*> presets() {
    std::vector<const OptionRow*> found;
    for (const OptionRow& row : optionRows()) {
        if (row.preset == Default::inSettings) {
            found.push_back(&row);
        }
    }
    return found;
}

const OptionRow* presetNamed(const QString& name) {
    const std::vector<const OptionRow*> rows = presets();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const OptionRow* row) { return QLatin1String(row->name) == name; });
    return found == rows.end() ? nullptr : *found;
}

QString unknownDefault(const QString& path, const QString& key) {
    constexpr int mostNames = 2;
    QStringList known;
    for (const OptionRow* row : presets()) {
        known << QString::fromLatin1(row->name);
    }
    const QStringList nearest =
        nearestNames(key, known, mostNames, [](const QString& name) { return name.toCaseFolded(); });
    return QStringLiteral("%1: \"%2\" is no default; the nearest are %3")
        .arg(path, key, nearest.join(QStringLiteral(", ")));
}

/// Records where a value was stated, and resolves a path from the folder of the file that states it.
void keepOrigin(const QString& folder, const QString& origin, const Setting& setting, Request& request) {
    if (setting.key == QLatin1String("paper")) {
        request.paper.origin = origin;
    } else if (setting.key == QLatin1String("margins")) {
        request.marginsOrigin = origin;
    } else if (setting.key == QLatin1String("pens")) {
        request.pensFiles = QStringList(QDir(folder).filePath(setting.value));
    }
}

} // namespace

void applyDefaults(const QString& folder, Request& request) {
    const QString path = QDir(folder).filePath(QStringLiteral("kelplot.ini"));
    if (!QFile::exists(path)) {
        return;
    }
    if (holdsPens(path)) {
        request.pensFiles << path;
    }
    addFonts(path, request.fonts);
    for (const Setting& setting : settingsFrom(path, "Defaults").value_or(std::vector<Setting>())) {
        const OptionRow* const preset = presetNamed(setting.key);
        if (preset == nullptr) {
            request.warnings << unknownDefault(path, setting.key);
        } else if (!setting.value.isEmpty()) {
            const QString origin = path + QStringLiteral(": ") + setting.key;
            try {
                preset->apply(request, setting.value);
            } catch (const UsageError& error) {
                throw SettingsError(origin, QString::fromUtf8(error.what()));
            }
            keepOrigin(folder, origin, setting, request);
        }
    }
}

} // namespace kelplot
