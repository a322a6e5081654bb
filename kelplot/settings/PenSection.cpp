// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PenSection.h"

#include <map>

#include "base/Numbers.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr const char* penSection = "Pens";
constexpr double widestPen = 100.0; // millimetres

const QLatin1String others("other");
const QLatin1String fromDrawing("drawing");

/// Why a part of a pen is not valid.
struct PenFault {
    QString reason;
};

std::optional<double> widthFrom(const QString& text) {
    if (text.isEmpty() || text == fromDrawing) {
        return std::nullopt;
    }
    const auto width = numberFromText(text.toStdString());
    if (!width || *width < 0.0 || *width > widestPen) {
        throw PenFault{QStringLiteral("\"%1\" is not a width; give millimetres from 0 to 100, or drawing").arg(text)};
    }
    return width;
}

std::optional<HT_Color> inkFrom(const QString& text) {
    if (text.isEmpty() || text == fromDrawing) {
        return std::nullopt;
    }
    if (text == QStringLiteral("black")) {
        return HT_Color{0};
    }
    constexpr int digits = 6;
    bool isNumber = false;
    const uint rgb = text.toUInt(&isNumber, 16);
    if (!isNumber || text.size() != digits || !text[0].isLetterOrNumber()) {
        throw PenFault{QStringLiteral("\"%1\" is not a colour; give RRGGBB, black or drawing").arg(text)};
    }
    return redBlueExchanged(rgb);
}

int screeningFrom(const QString& text) {
    if (text.isEmpty()) {
        return fullInk;
    }
    bool isNumber = false;
    const int screening = text.toInt(&isNumber);
    if (!isNumber || screening < 0 || screening > fullInk) {
        throw PenFault{QStringLiteral("\"%1\" is not a screening; give a percentage from 0 to 100").arg(text)};
    }
    return screening;
}

PenRule ruleFrom(const QString& text) {
    QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() > 3) {
        throw PenFault{QStringLiteral("a pen has a width, a colour and a screening, no more")};
    }
    while (parts.size() < 3) {
        parts << QString();
    }
    for (QString& part : parts) {
        part = part.trimmed().toLower();
    }
    PenRule rule;
    rule.width = widthFrom(parts[0]);
    rule.ink = inkFrom(parts[1]);
    rule.screening = screeningFrom(parts[2]);
    return rule;
}

PenRule ruleAt(const QString& path, const Setting& pen) {
    try {
        return ruleFrom(pen.value);
    } catch (const PenFault& fault) {
        throw SettingsError(path, QStringLiteral("pen %1=%2: %3").arg(pen.key, pen.value, fault.reason));
    }
}

/// The colour number of a pen; 0 for the numbers that are not listed.
int numberAt(const QString& path, const QString& key) {
    if (key == others) {
        return 0;
    }
    bool isNumber = false;
    const int number = key.toInt(&isNumber);
    if (!isNumber || number < 1 || number > PenTable::lastNumber) {
        throw SettingsError(path, QStringLiteral("pen %1: give a colour number from 1 to 255, or other").arg(key));
    }
    return number;
}

} // namespace

bool holdsPens(const QString& path) {
    return settingsFrom(path, penSection).has_value();
}

PenTable penTableFrom(const QStringList& paths) {
    std::map<int, PenRule> rules;
    for (const QString& path : paths) {
        const auto pens = settingsFrom(path, penSection);
        if (!pens) {
            throw SettingsError(
                path, QStringLiteral("not a pen table: it has no section [%1]").arg(QLatin1String(penSection)));
        }
        for (const Setting& pen : *pens) {
            rules[numberAt(path, pen.key)] = ruleAt(path, pen);
        }
    }
    PenTable table;
    for (int number = 1; number <= PenTable::lastNumber; ++number) {
        const auto listed = rules.find(number);
        table.set(number, listed != rules.end() ? listed->second : rules[0]);
    }
    return table;
}

} // namespace kelplot
