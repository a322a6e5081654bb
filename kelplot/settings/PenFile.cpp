#include "settings/PenFile.h"

#include <QStringList>

#include "keldriver/IniFile.h"
#include "page/Numbers.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr const char* penSection = "Pens";
constexpr double widestPen = 100.0; // millimetres

const QLatin1String others("other");
const QLatin1String fromDrawing("drawing");

/// Why a part of a pen means nothing.
struct PenFault {
    QString reason;
};

std::optional<double> widthFrom(const QString& text) {
    if (text.isEmpty() || text == fromDrawing) {
        return std::nullopt;
    }
    const auto width = numberFromText(text.toStdString());
    if (!width || *width < 0.0 || *width > widestPen) {
        throw PenFault{QStringLiteral("\"%1\" is no width; give millimetres from 0 to 100, or drawing").arg(text)};
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
        throw PenFault{QStringLiteral("\"%1\" is no colour; give RRGGBB, black or drawing").arg(text)};
    }
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

int screeningFrom(const QString& text) {
    if (text.isEmpty()) {
        return fullInk;
    }
    bool isNumber = false;
    const int screening = text.toInt(&isNumber);
    if (!isNumber || screening < 0 || screening > fullInk) {
        throw PenFault{QStringLiteral("\"%1\" is no screening; give per cent from 0 to 100").arg(text)};
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
    return {widthFrom(parts[0]), inkFrom(parts[1]), screeningFrom(parts[2])};
}

PenRule ruleAt(const QString& path, const QString& key) {
    const QString value = settingFrom(path, penSection, key);
    try {
        return ruleFrom(value);
    } catch (const PenFault& fault) {
        throw SettingsError(path, QStringLiteral("pen %1=%2: %3").arg(key, value, fault.reason));
    }
}

int numberAt(const QString& path, const QString& key) {
    bool isNumber = false;
    const int number = key.toInt(&isNumber);
    if (!isNumber || number < 1 || number > PenTable::lastNumber) {
        throw SettingsError(path, QStringLiteral("pen %1: give a colour number from 1 to 255, or other").arg(key));
    }
    return number;
}

/// The keys of the table, once each.
QStringList penKeys(inifile::IniFile& file) {
    QStringList keys;
    if (const inifile::IniSection* const section = file.getSection(penSection)) {
        for (const inifile::IniItem& item : section->items) {
            keys << QString::fromStdString(item.key);
        }
    }
    keys.removeDuplicates();
    return keys;
}

} // namespace

bool holdsPens(const QString& path) {
    inifile::IniFile file;
    return file.Load(path.toStdString()) == 0 && file.HasSection(penSection);
}

PenTable penTableFrom(const QString& path) {
    requireSettings(path);
    inifile::IniFile file;
    file.Load(path.toStdString());
    if (!file.HasSection(penSection)) {
        throw SettingsError(path,
                            QStringLiteral("no pen table: it has no section [%1]").arg(QLatin1String(penSection)));
    }
    PenTable table;
    const PenRule rule = ruleAt(path, QString(others));
    for (int number = 1; number <= PenTable::lastNumber; ++number) {
        table.set(number, rule);
    }
    for (const QString& key : penKeys(file)) {
        if (key != others) {
            table.set(numberAt(path, key), ruleAt(path, key));
        }
    }
    return table;
}

} // namespace kelplot
