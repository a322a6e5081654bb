// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/FontSet.h"

#include <QFontDatabase>
#include <algorithm>
#include <iterator>

namespace kelplot {

namespace {

constexpr size_t mostReported = 1000; ///< fonts or characters; no message is longer

constexpr char16_t signs[] = {
    u'\u2220', // a: angularity
    u'\u22A5', // b: perpendicularity
    u'\u23E5', // c: flatness
    u'\u2313', // d: profile of a surface
    u'\u25CB', // e: roundness
    u'\u2225', // f: parallelism
    u'\u232D', // g: cylindricity
    u'\u2197', // h: run-out
    u'\u232F', // i: symmetry
    u'\u2316', // j: position
    u'\u2312', // k: profile of a line
    u'\u24C1', // l: least material
    u'\u24C2', // m: most material
    u'\u2300', // n: diameter
    u'\u25A1', // o: square
    u'\u24C5', // p: projected tolerance zone
    u'\u2104', // q: centre line
    u'\u25CE', // r: concentricity
    u'\u24C8', // s: regardless of size
    u'\u2330', // t: total run-out
    u'\u23E4', // u: straightness
    u'\u2334', // v: counterbore
    u'\u2335', // w: countersink
    u'\u21A7', // x: depth
    u'\u2332', // y: conical taper
    u'\u2333', // z: slope
};
static_assert(std::size(signs) == 'z' - 'a' + 1);

tagLOGFONTW recordOf(const FontFace& face) {
    constexpr int32_t bold = 700, regular = 400;
    tagLOGFONTW record{};
    record.lfHeight = -emUnits;
    record.lfWeight = face.bold ? bold : regular;
    record.lfItalic = face.italic ? 1 : 0;
    const std::wstring family = face.family.toStdWString();
    std::copy_n(family.begin(), std::min(family.size(), std::size(record.lfFaceName)), record.lfFaceName);
    return record;
}

FontFace faceOf(const tagLOGFONTW& record) {
    constexpr int32_t semiBold = 600;
    const auto* end = std::find(std::begin(record.lfFaceName), std::end(record.lfFaceName), L'\0');
    return {QString::fromWCharArray(record.lfFaceName, static_cast<int>(end - record.lfFaceName)),
            record.lfWeight >= semiBold, record.lfItalic != 0};
}

/// Tells whether a character, or the first half of one, is an ideograph or written with them: their signs, kana,
/// hangul.
bool isEastAsian(QChar character) {
    const ushort code = character.unicode();
    return (code >= 0x2E80 && code <= 0xD7AF) || (code >= 0xD840 && code <= 0xD8FF) ||
           (code >= 0xF900 && code <= 0xFAFF) || (code >= 0xFE30 && code <= 0xFE4F) ||
           (code >= 0xFF00 && code <= 0xFFEF);
}

/// A text cut where ideographs begin or end. Marks stay with what they are written on.
QStringList stretchesOf(const QString& text) {
    QStringList stretches;
    int start = 0;
    for (int i = 1; i < text.size(); ++i) {
        const bool continues = text[i].isLowSurrogate() || text[i].isMark();
        if (!continues && isEastAsian(text[i]) != isEastAsian(text[start])) {
            stretches << text.mid(start, i - start);
            start = i;
        }
    }
    return text.isEmpty() ? stretches : stretches << text.mid(start);
}

/// Families of several foundries are listed as "Family [foundry]".
QString withoutFoundry(const QString& name) {
    return name.left(name.indexOf(QLatin1String(" [")));
}

} // namespace

QString toleranceSignsFor(const QString& letters) {
    QString result = letters;
    for (QChar& letter : result) {
        if (letter >= QLatin1Char('a') && letter <= QLatin1Char('z')) {
            letter = QChar(signs[letter.unicode() - u'a']);
        }
    }
    return result;
}

QString FontSet::installed(const QString& family) {
    if (m_installed.isEmpty()) {
        const QStringList families = QFontDatabase().families();
        for (const QString& name : families) {
            const QString plain = withoutFoundry(name);
            m_installed.insert(plain.toLower(), plain);
        }
    }
    return m_installed.value(family.toLower());
}

/// The first stand-in that is installed; without a family where none is.
FontStandIn FontSet::installedOf(const QVector<FontStandIn>& standIns) {
    for (const FontStandIn& standIn : standIns) {
        if (QString name = installed(standIn.family); !name.isEmpty()) {
            return {name, standIn.widthRatio};
        }
    }
    return {};
}

/// The first of the others that is installed; where none is, Qt's own choice.
FontStandIn FontSet::other() {
    FontStandIn other = installedOf(m_table.others());
    return other.family.isEmpty() ? FontStandIn{QFont().defaultFamily()} : other;
}

/// The family for a font, or else one of the others.
FontStandIn FontSet::standInFor(const QString& key, const FontRule* rule) {
    FontStandIn own = rule ? installedOf(rule->standIns) : FontStandIn{installed(key)};
    return own.family.isEmpty() ? other() : own;
}

FontChoice FontSet::choose(const FontName& name, const std::string& bigFontFile) {
    return m_choices.get({name.name, name.isFile, name.bold, name.italic, bigFontFile},
                         [&] { return find(name, bigFontFile); });
}

FontChoice FontSet::find(const FontName& name, const std::string& bigFontFile) {
    const QString key = FontTable::keyOf(name);
    const FontRule* const rule = m_table.find(key);
    const FontStandIn standIn = standInFor(key, rule);
    FontChoice choice;
    choice.face.family = standIn.family;
    choice.widthRatio = standIn.widthRatio;
    choice.standIn = !key.isEmpty() && standIn.family.toLower() != key;
    choice.face.bold = name.bold || (rule && rule->bold);
    choice.face.italic = name.italic || (rule && rule->italic);
    choice.symbols = rule && rule->symbols;
    noteReplaced(name.name, key, choice.face.family);
    if (!bigFontFile.empty()) {
        const QString bigKey = FontTable::keyOf({bigFontFile, true, false, false});
        const FontRule* const bigRule = m_table.find(bigKey);
        choice.bigFont = bigRule ? installedOf(bigRule->standIns).family : installed(bigKey);
        noteReplaced(bigFontFile, bigKey, choice.bigFont.isEmpty() ? other().family : choice.bigFont);
    }
    return choice;
}

/// Keeps the family that stands for a font of another name.
void FontSet::noteReplaced(const std::string& font, const QString& key, const QString& family) {
    if (!key.isEmpty() && family.toLower() != key && m_report.replaced.size() < mostReported) {
        m_report.replaced[QString::fromStdString(font)] = family;
    }
}

/// The families for the characters that a face lacks.
QStringList FontSet::familiesAfter(const QString& bigFont) const {
    QStringList families{bigFont};
    for (const FontStandIn& other : m_table.others()) {
        families << other.family;
    }
    return families;
}

const HT_FontMap& FontSet::fallbacks(const QString& bigFont) {
    const auto found = m_fallbacks.find(bigFont);
    if (found != m_fallbacks.end()) {
        return found->second;
    }
    HT_FontMap& map = m_fallbacks[bigFont];
    for (const QString& family : familiesAfter(bigFont)) {
        if (QString name = installed(family); !name.isEmpty()) {
            map.Add(name.toStdWString(), recordOf({name, false, false}));
        }
    }
    return map;
}

const std::vector<FontRun>& FontSet::split(const QString& text, const FontChoice& choice) {
    return m_splits.get({text, choice}, [&] { return runsOf(text, choice); });
}

/// The face for a stretch of a text. One of ideographs stays in one font: where the face of the choice lacks some of
/// them, that is the first of the others that has all.
FontFace FontSet::faceOfStretch(const QString& stretch, const FontChoice& choice) {
    if (!isEastAsian(stretch[0])) {
        return choice.face;
    }
    const QVector<uint> characters = stretch.toUcs4();
    const auto hasAll = [&](const FontFace& face) {
        const FontMetric& font = metric(face);
        return std::all_of(characters.begin(), characters.end(), [&](uint each) { return font.has(each); });
    };
    if (!hasAll(choice.face)) {
        for (const QString& family : familiesAfter(choice.bigFont)) {
            FontFace face{installed(family), false, false};
            if (!face.family.isEmpty() && hasAll(face)) {
                return face;
            }
        }
    }
    return choice.face;
}

std::vector<FontRun> FontSet::runsOf(const QString& text, const FontChoice& choice) {
    const QString shown = choice.symbols ? toleranceSignsFor(text) : text;
    std::vector<FontRun> runs;
    for (const QString& stretch : stretchesOf(shown)) {
        const FontFace wanted = faceOfStretch(stretch, choice);
        const HT_Text subTexts(stretch.toStdWString().c_str(), recordOf(wanted), fallbacks(choice.bigFont));
        for (const HT_SubText& run : subTexts.GetSubTexts()) {
            const FontFace face = faceOf(run.font);
            const QString part = QString::fromStdWString(subTexts.GetRunText(run));
            if (!runs.empty() && runs.back().face == face) {
                runs.back().text += part;
            } else {
                runs.push_back({part, face, face == choice.face ? choice.widthRatio : 1.0});
            }
        }
    }
    for (const FontRun& run : runs) {
        noteMissing(run);
    }
    if (shown.isRightToLeft()) { // the renderer turns each run by itself
        std::reverse(runs.begin(), runs.end());
    }
    return runs;
}

/// Keeps the characters for which the run's font has no glyph; those that never show do not count.
void FontSet::noteMissing(const FontRun& run) {
    const FontMetric& font = metric(run.face);
    for (const uint character : run.text.toUcs4()) {
        const bool shows = QChar::isPrint(character) && !QChar::isSpace(character) &&
                           QChar::category(character) != QChar::Other_Format;
        if (shows && !font.has(character) && m_report.missing.size() < mostReported) {
            m_report.missing.insert(character);
        }
    }
}

const FontMetric& FontSet::metric(const FontFace& face) {
    std::shared_ptr<FontMetric>& metric = m_metrics[face];
    if (!metric) {
        metric = std::make_shared<FontMetric>(face);
    }
    return *metric;
}

} // namespace kelplot
