// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <vector>

#include "drawing/Entity.h"

namespace kelplot {

/// The lines of hatch patterns by their names, in millimetres and neither turned nor scaled.
class PatternTable {
public:
    /// The lines of a pattern, its name in any case; null when the table does not list it.
    const std::vector<PatternLine>* find(const QString& name) const;

    /// Adds a pattern in place of one of the same name.
    void set(const QString& name, std::vector<PatternLine> lines) { m_patterns[name.toUpper()] = std::move(lines); }

private:
    QHash<QString, std::vector<PatternLine>> m_patterns;
};

/// Adds the patterns of a file to a table.
///
/// A pattern is a line "*NAME, what it is", and then a line for each of its families of lines:
/// "angle, x, y, shift, distance, dash, dash...". The angle is in degrees; x and y are a point where dashes begin; the
/// next line lies at the distance to the left and is shifted along the lines; dashes are positive, gaps negative, dots
/// 0. What follows a semicolon is a comment, but ";%UNITS=INCH" and ";%UNITS=MM" state the unit of the lengths that
/// follow, which are millimetres elsewhere. Throws `SettingsError`, which names the line.
void addPatterns(const QString& path, PatternTable& table);

} // namespace kelplot
