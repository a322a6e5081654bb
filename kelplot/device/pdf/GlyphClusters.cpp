// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/GlyphClusters.h"

#include <QGlyphRun>
#include <QTextLayout>
#include <algorithm>
#include <numeric>

namespace kelplot {
namespace {

using Runs = QList<QGlyphRun>;

/// Tells whether a character stands by itself, in the order of reading from left to right.
bool standsAlone(QChar character) {
    struct Range {
        char16_t first, last;
    };
    // Without marks that are set on others, without scripts that join or turn, and without signs of direction.
    constexpr Range ranges[] = {{0x20, 0x7E},     {0xA0, 0xAC},     {0xAE, 0x2FF},    {0x370, 0x482},
                                {0x48A, 0x58A},   {0x1E00, 0x1FFF}, {0x2010, 0x2027}, {0x2030, 0x205E},
                                {0x2070, 0x20CF}, {0x2100, 0x2CFF}, {0x3003, 0x3029}, {0x3030, 0x3098},
                                {0x309B, 0xA48F}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFF01, 0xFF9D}};
    const char16_t code = character.unicode();
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [&](const Range& range) { return range.first <= code && code <= range.last; });
}

int glyphCount(const Runs& runs) {
    return std::accumulate(runs.begin(), runs.end(), 0,
                           [](int count, const QGlyphRun& run) { return count + run.glyphIndexes().size(); });
}

class ClusterFinder {
public:
    ClusterFinder(const QString& text, const QTextLine& line)
        : m_text(text), m_line(line), m_baseLine(line.ascent()), m_runs(line.glyphRuns()) {}

    std::vector<GlyphCluster> find() const {
        const int count = glyphCount(m_runs);
        if (count == m_text.size() && std::all_of(m_text.begin(), m_text.end(), standsAlone)) {
            return oneEach();
        }
        std::vector<GlyphCluster> clusters = askedEach();
        const auto found =
            std::accumulate(clusters.begin(), clusters.end(), size_t{0},
                            [](size_t sum, const GlyphCluster& cluster) { return sum + cluster.glyphs.size(); });
        return found == static_cast<size_t>(count) ? clusters : oneForAll();
    }

private:
    GlyphCluster clusterOf(const QGlyphRun& run, const QString& characters) const {
        GlyphCluster cluster{run.rawFont(), {}, characters};
        const QVector<quint32> indexes = run.glyphIndexes();
        const QVector<QPointF> positions = run.positions();
        for (int i = 0; i < indexes.size(); ++i) {
            cluster.glyphs.push_back({indexes[i], positions[i] - QPointF(0.0, m_baseLine)});
        }
        return cluster;
    }

    /// Each character has its glyph, in the same order.
    std::vector<GlyphCluster> oneEach() const {
        std::vector<GlyphCluster> clusters;
        int at = 0;
        for (const QGlyphRun& run : m_runs) {
            const GlyphCluster whole = clusterOf(run, {});
            for (const PlacedGlyph& glyph : whole.glyphs) {
                clusters.push_back({whole.font, {glyph}, m_text.mid(at++, 1)});
            }
        }
        return clusters;
    }

    /// What the layout tells of each character.
    std::vector<GlyphCluster> askedEach() const {
        std::vector<GlyphCluster> clusters;
        Runs last;
        for (int i = 0; i < m_text.size(); ++i) {
            const Runs runs = m_text[i].isLowSurrogate() ? last : m_line.glyphRuns(i, 1);
            if (!runs.isEmpty() && !clusters.empty() && isSame(runs, last)) {
                clusters.back().characters += m_text[i];
                continue;
            }
            for (const QGlyphRun& run : runs) {
                clusters.push_back(clusterOf(run, &run == &runs.first() ? m_text.mid(i, 1) : QString()));
            }
            last = runs;
        }
        std::stable_sort(clusters.begin(), clusters.end(),
                         [](const GlyphCluster& a, const GlyphCluster& b) { return leftOf(a) < leftOf(b); });
        return clusters;
    }

    /// The whole text as one cluster for each font, with the characters at the first one.
    std::vector<GlyphCluster> oneForAll() const {
        std::vector<GlyphCluster> clusters;
        for (const QGlyphRun& run : m_runs) {
            clusters.push_back(clusterOf(run, clusters.empty() ? m_text : QString()));
        }
        return clusters;
    }

    static bool isSame(const Runs& a, const Runs& b) {
        return a.size() == b.size() &&
               std::equal(a.begin(), a.end(), b.begin(), [](const auto& left, const auto& right) {
                   return left.glyphIndexes() == right.glyphIndexes() && left.positions() == right.positions();
               });
    }

    static double leftOf(const GlyphCluster& cluster) {
        return std::accumulate(cluster.glyphs.begin(), cluster.glyphs.end(), 1e30,
                               [](double left, const PlacedGlyph& glyph) { return std::min(left, glyph.at.x()); });
    }

    const QString& m_text;
    const QTextLine& m_line;
    double m_baseLine;
    Runs m_runs;
};

} // namespace

std::vector<GlyphCluster> glyphClusters(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.setCacheEnabled(true);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.isValid() ? ClusterFinder(text, line).find() : std::vector<GlyphCluster>();
}

} // namespace kelplot
