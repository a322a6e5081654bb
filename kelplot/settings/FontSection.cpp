// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/FontSection.h"

#include "base/Numbers.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr const char* fontSection = "Fonts";
const QLatin1String otherFonts("other");

/// A family and, after an asterisk, how wide it is set.
FontStandIn standInFrom(const QString& path, const QString& text) {
    constexpr double narrowest = 0.1, widest = 10.0;
    const int asterisk = text.lastIndexOf(QLatin1Char('*'));
    if (asterisk < 0) {
        return {text};
    }
    const auto ratio = numberFromText(text.mid(asterisk + 1).trimmed().toStdString());
    if (!ratio || *ratio < narrowest || *ratio > widest) {
        throw SettingsError(path, QStringLiteral("font %1: give a width ratio from 0.1 to 10 after the *").arg(text));
    }
    return {text.left(asterisk).trimmed(), *ratio};
}

FontRule fontRuleFrom(const QString& path, const QString& text) {
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
            rule.standIns << standInFrom(path, word);
        }
    }
    return rule;
}

} // namespace

void addFonts(const QString& path, FontTable& table) {
    for (const Setting& setting : settingsFrom(path, fontSection).value_or(std::vector<Setting>())) {
        const QString name = setting.key.toLower();
        const FontRule rule = fontRuleFrom(path, setting.value);
        if (name == otherFonts) {
            table.setOthers(rule.standIns);
        } else {
            table.set(name, rule);
        }
    }
}

} // namespace kelplot
