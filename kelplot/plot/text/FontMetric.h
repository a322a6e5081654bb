// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>
#include <unordered_map>

#include "base/BoundedCache.h"
#include "geometry/Box2.h"

namespace kelplot {

/// An installed font in one of its styles.
struct FontFace {
    QString family;
    bool bold = false;
    bool italic = false;

    friend bool operator==(const FontFace& a, const FontFace& b) {
        return a.family == b.family && a.bold == b.bold && a.italic == b.italic;
    }
};

inline uint qHash(const FontFace& face, uint seed = 0) {
    return qHash(face.family, seed) ^ (face.bold ? 1U : 0U) ^ (face.italic ? 2U : 0U);
}

/// The size of the em square at which all texts are measured and drawn; their true size comes from scaling. It is large
/// because fonts round lengths to whole units of it.
constexpr int emUnits = 1024;

/// How large the letters of a font are. Lengths are parts of its em square, y upwards from the base line.
class FontMetric {
public:
    explicit FontMetric(const FontFace& face);

    const QFont& font() const { return m_font; } ///< with an em square of `emUnits` pixels
    double capHeight() const { return m_capHeight; }
    double depth() const { return m_depth; } ///< of letters that reach below the base line
    /// The width of a text that the font shows by itself, on one line.
    double advanceOf(const QString& text) const;
    /// What such a text covers; empty when nothing shows. Takes longer to find than the width.
    Box2 inkOf(const QString& text) const;

private:
    QFont m_font;
    QFontMetricsF m_metrics;
    double m_capHeight;
    double m_depth;
    static constexpr size_t mostTexts = 20000;
    mutable BoundedCache<std::unordered_map<QString, double>, mostTexts> m_advances;
    mutable BoundedCache<std::unordered_map<QString, Box2>, mostTexts> m_inks;
};

} // namespace kelplot
