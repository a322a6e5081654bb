// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "base/BoundedCache.h"
#include "keldriver/SubText.h"
#include "plot/text/FontMetric.h"
#include "settings/FontTable.h"

namespace kelplot {

/// The geometric tolerance signs that the fonts for them have in place of letters.
QString toleranceSignsFor(const QString& letters);

/// The font that was chosen for a text.
struct FontChoice {
    FontFace face;
    QString bigFont;         ///< family for the characters that the face lacks; may be empty
    bool symbols = false;    ///< letters are signs of tolerances
    bool standIn = false;    ///< the font that the drawing names is not installed
    double widthRatio = 1.0; ///< of the letters of the face

    friend bool operator==(const FontChoice& a, const FontChoice& b) {
        return a.face == b.face && a.bigFont == b.bigFont && a.symbols == b.symbols && a.widthRatio == b.widthRatio;
    }
};

inline uint qHash(const FontChoice& choice, uint seed = 0) {
    return qHash(choice.face, seed) ^ (qHash(choice.bigFont, seed) << 1) ^ (choice.symbols ? 4U : 0U);
}

/// A part of a text that one font shows.
struct FontRun {
    QString text;
    FontFace face;
    double widthRatio = 1.0;
};

/// What texts look other than their drawing says.
struct FontReport {
    std::map<QString, QString> replaced; ///< fonts that are not installed, and the families that stand for them
    std::set<uint> missing;              ///< characters that no font has
};

/// The installed fonts, as far as a plot uses them. Outlives no `QGuiApplication`, and needs one as soon as there is a
/// text.
class FontSet {
public:
    explicit FontSet(FontTable table) : m_table(std::move(table)) {}

    /// @param bigFontFile  the font for scripts that the named one lacks; may be empty
    FontChoice choose(const FontName& name, const std::string& bigFontFile);
    /// The parts of a text, each with a font that shows it where there is one. Valid until the next text.
    const std::vector<FontRun>& split(const QString& text, const FontChoice& choice);
    const FontMetric& metric(const FontFace& face);

    /// What became of fonts and characters so far.
    const FontReport& report() const { return m_report; }

private:
    using FontRequest = std::tuple<std::string, bool, bool, bool, std::string>; ///< all that `choose` goes by
    using FontedText = std::pair<QString, FontChoice>;
    struct FontedTextHash {
        size_t operator()(const FontedText& key) const { return qHash(key); }
    };

    FontChoice find(const FontName& name, const std::string& bigFontFile);
    FontFace faceOfStretch(const QString& stretch, const FontChoice& choice);
    std::vector<FontRun> runsOf(const QString& text, const FontChoice& choice);
    FontStandIn installedOf(const QVector<FontStandIn>& standIns);
    FontStandIn other();
    QStringList familiesAfter(const QString& bigFont) const;
    QString installed(const QString& family);
    FontStandIn standInFor(const QString& key, const FontRule* rule);
    const HT_FontMap& fallbacks(const QString& bigFont);

    void noteReplaced(const std::string& font, const QString& key, const QString& family);
    void noteMissing(const FontRun& run);

    FontTable m_table;
    FontReport m_report;
    QHash<QString, QString> m_installed; ///< names of families by their names in small letters
    std::map<QString, HT_FontMap> m_fallbacks;
    QHash<FontFace, std::shared_ptr<FontMetric>> m_metrics;
    BoundedCache<std::map<FontRequest, FontChoice>, 1000> m_choices;
    BoundedCache<std::unordered_map<FontedText, std::vector<FontRun>, FontedTextHash>, 20000> m_splits;
};

} // namespace kelplot
