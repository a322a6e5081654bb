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

constexpr double millimetresInInch = 25.4;

/// Reads the line of a family; nothing where it is none.
std::optional<PatternLine> patternLineFrom(const QString& text, double millimetresInUnit) {
    constexpr int fixedNumbers = 5;
    std::vector<double> numbers;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const auto number = numberFromText(part.trimmed().toStdString());
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number * (numbers.empty() ? 1.0 : millimetresInUnit)); // the first is the angle
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

/// Takes the lines of a file one after the other.
class PatternReader {
public:
    explicit PatternReader(PatternTable& table) : m_table(table) {}

    /// False where the line is not one of a pattern.
    bool take(const QString& line) {
        takeUnit(line);
        const QString text = line.section(QLatin1Char(';'), 0, 0).trimmed();
        if (text.isEmpty()) {
            return true;
        }
        if (text.startsWith(QLatin1Char('*'))) {
            keep();
            m_name = text.mid(1).section(QLatin1Char(','), 0, 0).trimmed();
            return true;
        }
        const auto family = patternLineFrom(text, m_millimetresInUnit);
        if (!family || m_name.isEmpty()) {
            return false;
        }
        m_lines.push_back(*family);
        return true;
    }

    /// Adds the pattern that was read last to the table.
    void keep() {
        if (!m_name.isEmpty()) {
            m_table.set(m_name, std::move(m_lines));
        }
        m_lines.clear();
    }

private:
    /// A comment states the unit of the lengths that follow.
    void takeUnit(const QString& line) {
        const QString text = line.toUpper().remove(QLatin1Char(' '));
        if (text.startsWith(QLatin1String(";%UNITS=INCH"))) {
            m_millimetresInUnit = millimetresInInch;
        } else if (text.startsWith(QLatin1String(";%UNITS=MM"))) {
            m_millimetresInUnit = 1.0;
        }
    }

    PatternTable& m_table;
    QString m_name;
    std::vector<PatternLine> m_lines;
    double m_millimetresInUnit = 1.0;
};

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
    PatternReader reader(table);
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        if (!reader.take(lines[i])) {
            throw SettingsError(path, QStringLiteral("line %1: \"%2\" is not a line of a pattern; give "
                                                     "angle, x, y, shift, distance and the dashes")
                                          .arg(i + 1)
                                          .arg(lines[i].trimmed()));
        }
    }
    reader.keep();
}

} // namespace kelplot
