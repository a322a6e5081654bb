// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/FontSection.h"

#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr const char* fontSection = "Fonts";
const QLatin1String otherFonts("other");

FontRule fontRuleFrom(const QString& text) {
    FontRule rule;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const QString word = part.trimmed();
        if (word == QLatin1String("bold")) {
            rule.bold = true;
        } else if (word == QLatin1String("italic")) {
            rule.italic = true;
        } else if (word == QLatin1String("symbols")) {
            rule.symbols = true;
        } else if (!word.isEmpty()) {
            rule.families << word;
        }
    }
    return rule;
}

} // namespace

void addFonts(const QString& path, FontTable& table) {
    for (const Setting& setting : settingsFrom(path, fontSection).value_or(std::vector<Setting>())) {
        const QString name = setting.key.toLower();
        const FontRule rule = fontRuleFrom(setting.value);
        if (name == otherFonts) {
            table.setOthers(rule.families);
        } else {
            table.set(name, rule);
        }
    }
}

} // namespace kelplot
