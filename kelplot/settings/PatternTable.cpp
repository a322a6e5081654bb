// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PatternTable.h"

#include <QFile>
#include <QStringList>
#include <cmath>

#include "base/Angles.h"
#include "base/Numbers.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr qint64 largestFile = 16 << 20; // bytes; the patterns of a whole office take far less

/// Reads the line of a family; nothing where it is none.
std::optional<PatternLine> patternLineFrom(const QString& text) {
    constexpr int fixedNumbers = 5;
    std::vector<double> numbers;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const auto number = numberFromText(part.trimmed().toStdString());
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number);
    }
    if (numbers.size() < fixedNumbers) {
        return std::nullopt;
    }
    PatternLine line;
    line.angle = radiansFromDegrees(numbers[0]);
    line.base = {numbers[1], numbers[2]};
    const Vec2 along{std::cos(line.angle), std::sin(line.angle)};
    line.offset = along * numbers[3] + leftNormal(along) * numbers[4];
    line.dashes.assign(numbers.begin() + fixedNumbers, numbers.end());
    return line;
}

} // namespace

const std::vector<PatternLine>* PatternTable::find(const QString& name) const {
    const auto found = m_patterns.constFind(name.toUpper());
    return found == m_patterns.constEnd() ? nullptr : &*found;
}

void addPatterns(const QString& path, PatternTable& table) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw SettingsError(path, file.errorString());
    }
    if (file.size() > largestFile) {
        throw SettingsError(path, QStringLiteral("too large for a file of patterns"));
    }
    QString name;
    std::vector<PatternLine> lines;
    const auto keep = [&] {
        if (!name.isEmpty()) {
            table.set(name, std::move(lines));
        }
        lines.clear();
    };
    const QStringList texts = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (int i = 0; i < texts.size(); ++i) {
        const QString text = texts[i].section(QLatin1Char(';'), 0, 0).trimmed();
        if (text.startsWith(QLatin1Char('*'))) {
            keep();
            name = text.mid(1).section(QLatin1Char(','), 0, 0).trimmed();
        } else if (!text.isEmpty()) {
            const auto line = patternLineFrom(text);
            if (!line || name.isEmpty()) {
                throw SettingsError(path, QStringLiteral("line %1: \"%2\" is not a line of a pattern; give "
                                                         "angle, x, y, shift, distance and the dashes")
                                              .arg(i + 1)
                                              .arg(text));
            }
            lines.push_back(*line);
        }
    }
    keep();
}

} // namespace kelplot
