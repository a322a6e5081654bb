// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PlotStyleRecords.h"

#include <QMap>
#include <algorithm>

#include "base/Numbers.h"

namespace kelplot {
namespace {

/// A style as its block states it.
struct StyleRecord {
    int index = 0; ///< of the block
    QMap<QByteArray, QByteArray> values;

    int number(const char* key, int otherwise) const {
        bool isNumber = false;
        const int value = values.value(key).toInt(&isNumber);
        return isNumber ? value : otherwise;
    }
};

/// What the text of a table holds of interest.
struct StyleText {
    std::vector<StyleRecord> styles;
    QMap<int, double> widths; ///< millimetres, by their numbers
};

/// What a style plots with where it does not leave that to the entity: dashes and dots by their letters, and the gap
/// after each. L is a long dash, M one of medium length, S a short one and d a dot.
struct StyleLine {
    const char* strokes;
    double gap = 3.0;
    double stretch = 1.0;
};

/// By their numbers. The order of dashes and dots is that of the line type; the lengths are those that ISO 128 gives,
/// in widths of the line for which they are made.
constexpr StyleLine styleLines[] = {
    {""},        {"M"},           {"d"},           {"Md"},          {"S"},      {"M"},
    {"L"},       {"S", 3.0, 2.0}, {"M", 3.0, 2.0}, {"L", 3.0, 2.0}, {"ML"},     {"MSS"},
    {"LS"},      {"Ldd"},         {"Ld"},          {"MdSd"},        {"d", 6.0}, {"M"},
    {"M", 18.0}, {"Ld"},          {"Ldd"},         {"Lddd"},        {"d"},      {"LS"},
    {"LSS"},     {"Md"},          {"MMd"},         {"Mdd"},         {"MMdd"},   {"Mddd"},
    {"MMddd"},
};

double lengthOf(char stroke) {
    switch (stroke) {
    case 'L':
        return 24.0;
    case 'M':
        return 12.0;
    case 'S':
        return 6.0;
    default:
        return 0.0;
    }
}

/// @param unit  millimetres in a unit of the line's lengths
LineType lineTypeOf(const StyleLine& line, double unit) {
    LineType type;
    for (const char* stroke = line.strokes; *stroke != '\0'; ++stroke) {
        type.pattern.push_back(lengthOf(*stroke) * line.stretch * unit);
        type.pattern.push_back(-line.gap * line.stretch * unit);
    }
    return type;
}

/// The entry of a number in a table; nothing for numbers beyond it.
template <typename Value, size_t count>
std::optional<Value> entryOf(const Value (&table)[count], int number) {
    const bool listed = number >= 0 && static_cast<size_t>(number) < count;
    return listed ? std::optional<Value>(table[number]) : std::nullopt;
}

/// The ink of a style, whose three low bytes are red, green and blue.
std::optional<HT_Color> inkOf(const StyleRecord& style) {
    constexpr uint32_t ofEntity = 0xFFFFFFFF;
    constexpr uint32_t alsoOfEntity = 0xC3FFFFFF;
    const auto colour = static_cast<uint32_t>(style.number("color", -1));
    if (colour == ofEntity || colour == alsoOfEntity) {
        return std::nullopt;
    }
    return redBlueExchanged(colour & 0xFFFFFF);
}

/// The line type of a style; nothing for the number that leaves it to the entity.
std::optional<LineType> lineTypeOf(const StyleRecord& style) {
    constexpr double usualUnit = 0.5;
    constexpr double largestUnit = 1000.0;
    const auto line = entryOf(styleLines, style.number("linetype", -1));
    if (!line) {
        return std::nullopt;
    }
    const double unit = numberFromText(style.values.value("linepattern_size").toStdString()).value_or(usualUnit);
    return lineTypeOf(*line, unit > 0.0 && unit <= largestUnit ? unit : usualUnit);
}

PenRule ruleOf(const StyleRecord& style, const QMap<int, double>& widths) {
    using namespace HT_PlotStyle;
    constexpr int convertsToGrey = 2; // a bit of the policy
    constexpr int firstFill = 64;
    // A diamond, the last of each, comes nearest to round ones.
    constexpr LineEndStyle ends[] = {LineEndFlat, LineEndSquare, LineEndRound, LineEndRound};
    constexpr LineJoinStyle joins[] = {LineJoinMiter, LineJoinBevel, LineJoinRound, LineJoinRound};
    constexpr FillStyle fills[] = {FillSolid,           FillSquares,          FillCross, FillDiagCross, FillHorizontal,
                                   FillForwardDiagonal, FillBackwardDiagonal, FillDots,  FillVertical};
    PenRule rule;
    const int width = style.number("lineweight", 0);
    if (width > 0 && widths.contains(width)) {
        rule.width = widths.value(width);
    }
    const int screening = style.number("screen", fullInk);
    rule.screening = screening >= 0 && screening <= fullInk ? screening : fullInk;
    rule.ink = inkOf(style);
    rule.grey = (style.number("color_policy", 0) & convertsToGrey) != 0;
    rule.lineType = lineTypeOf(style);
    rule.fitsLineType = rule.lineType && style.values.value("adaptive_linetype").toUpper() == "TRUE";
    rule.ends = entryOf(ends, style.number("end_style", -1));
    rule.joins = entryOf(joins, style.number("join_style", -1));
    rule.fill = entryOf(fills, style.number("fill_style", 0) - firstFill);
    return rule;
}

[[noreturn]] void refuse(int line) {
    throw PlotStyleFault{QStringLiteral("damaged: line %1 of its text makes no sense").arg(line)};
}

/// Goes through the lines of a text, in blocks within blocks.
class StyleTextReader {
public:
    StyleText read(const QByteArray& text) {
        const QList<QByteArray> lines = text.split('\n');
        for (int i = 0; i < lines.size(); ++i) {
            take(lines[i].trimmed(), i + 1);
        }
        if (!m_open.isEmpty()) {
            throw PlotStyleFault{QStringLiteral("damaged: a block of its text has no end")};
        }
        return std::move(m_text);
    }

private:
    void take(const QByteArray& line, int number) {
        const int equals = line.indexOf('=');
        if (equals > 0) {
            QByteArray value = line.mid(equals + 1);
            takeValue(line.left(equals), value.startsWith('"') ? value.mid(1) : value);
        } else if (line.endsWith('{')) {
            open(line.chopped(1).trimmed(), number);
        } else if (line == "}" && !m_open.isEmpty()) {
            m_open.removeLast();
        } else if (!line.isEmpty() && line != QByteArray(1, '\0')) {
            refuse(number);
        }
    }

    void open(const QByteArray& key, int line) {
        constexpr int deepest = 16;
        if (m_open.size() == deepest) {
            refuse(line);
        }
        m_open << key;
        constexpr size_t mostStyles = 10000;
        if (isInStyle()) {
            m_text.styles.push_back({key.toInt(), {}});
        }
        if (m_text.styles.size() > mostStyles) {
            throw PlotStyleFault{QStringLiteral("it holds too many plot styles")};
        }
    }

    void takeValue(const QByteArray& key, const QByteArray& value) {
        if (isInStyle()) {
            m_text.styles.back().values[key] = value;
        } else if (m_open == QList<QByteArray>{"custom_lineweight_table"}) {
            constexpr double widest = 100.0; // millimetres
            const auto width = numberFromText(value.toStdString());
            if (width && *width >= 0.0 && *width <= widest) {
                m_text.widths.insert(key.toInt(), *width);
            }
        }
    }

    bool isInStyle() const { return m_open.size() == 2 && m_open.first() == "plot_style"; }

    QList<QByteArray> m_open; ///< the blocks that the reader is in
    StyleText m_text;
};

/// The colour number of a style, which its name or else its place tells; 0 for other styles.
int colourNumberOf(const StyleRecord& style) {
    const QByteArray name = style.values.value("name");
    const QByteArray prefix("Color_");
    const int number = name.startsWith(prefix) ? name.mid(prefix.size()).toInt() : style.index + 1;
    return number >= 1 && number <= PenTable::lastNumber ? number : 0;
}

QString nameOf(const StyleRecord& style) {
    const QByteArray bytes = style.values.value("name");
    const QString name = QString::fromUtf8(bytes);
    return name.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(bytes) : name;
}

} // namespace

PenTable plotStylesIn(const QByteArray& text, StyleNames names) {
    const StyleText read = StyleTextReader().read(text);
    if (read.styles.empty()) {
        throw PlotStyleFault{QStringLiteral("it holds no plot styles")};
    }
    PenTable table;
    for (const StyleRecord& style : read.styles) {
        const PenRule rule = ruleOf(style, read.widths);
        if (names == StyleNames::free) {
            table.set(nameOf(style), rule);
        } else if (const int number = colourNumberOf(style); number != 0) {
            table.set(number, rule);
        }
    }
    return table;
}

} // namespace kelplot
