// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QVector>

#include "drawing/Text.h"

namespace kelplot {

/// A font that may take the place of another.
struct FontStandIn {
    QString family;
    double widthRatio = 1.0; ///< how wide its letters are set, as a part of their own width
};

/// What takes the place of a font that drawings name.
struct FontRule {
    QVector<FontStandIn> standIns; ///< the best first
    bool bold = false;
    bool italic = false;
    bool symbols = false; ///< its letters are the signs of geometric tolerances
};

/// Which fonts stand for those that drawings name.
class FontTable {
public:
    /// How the table knows a font: small letters, without a folder, the ending of a file and the mark of vertical
    /// fonts.
    static QString keyOf(const FontName& name);

    void set(const QString& key, const FontRule& rule) { m_rules[key] = rule; }
    /// Null when the table does not list the font.
    const FontRule* find(const QString& key) const;

    /// The families for fonts that are not listed or not installed, and for the characters that a font lacks.
    const QVector<FontStandIn>& others() const { return m_others; }
    void setOthers(const QVector<FontStandIn>& standIns) { m_others = standIns; }

private:
    QHash<QString, FontRule> m_rules;
    QVector<FontStandIn> m_others;
};

} // namespace kelplot
