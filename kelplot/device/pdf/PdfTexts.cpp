// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfTexts.h"

#include <algorithm>
#include <cmath>

namespace kelplot {
namespace {

constexpr double perEm = 1000.0; ///< units in which glyphs are moved

/// Writes the operators that show glyphs of one font, and keeps where the document takes itself to be.
class PieceWriter {
public:
    PieceWriter(PdfFont& font, int index, double start) : m_font(font), m_start(start) { m_piece.font = index; }

    void add(const GlyphCluster& cluster, double pixelsPerEm) {
        const bool isAlone = cluster.glyphs.size() == 1;
        const PdfFont::Use first = m_font.use(cluster.glyphs[0].index, isAlone ? cluster.characters : QString());
        const bool isKnown = first.isUnderstood;
        if (!isKnown) {
            endShowing();
            m_hasSpans = true;
            m_bytes << beginSpan(cluster.characters);
        }
        for (const PlacedGlyph& glyph : cluster.glyphs) {
            moveTo((glyph.at.x() / pixelsPerEm - m_start) * perEm, -glyph.at.y() / pixelsPerEm);
            m_shown.hex4(glyph.index);
            m_pen += isAlone ? first.width : m_font.use(glyph.index, {}).width;
        }
        if (!isKnown) {
            endShowing();
            m_bytes << endSpan;
        }
    }

    bool hasSpans() const { return m_hasSpans; }

    TextPiece finish() {
        endShowing();
        if (m_rise != 0.0) {
            m_bytes << "0 Ts\n";
        }
        m_piece.start = m_start;
        m_piece.slant = m_font.slant();
        m_piece.showing = std::string(m_bytes.view());
        return std::move(m_piece);
    }

private:
    void moveTo(double x, double rise) {
        if (std::abs(rise - m_rise) * perEm >= 0.5) {
            endShowing();
            m_rise = rise;
            m_bytes.decimal(rise, 4) << "Ts\n";
        }
        const double step = std::round(x - m_pen);
        if (step != 0.0) {
            if (m_shown.isEmpty()) {
                m_shown << '<';
            }
            m_shown << '>' << static_cast<int64_t>(-step) << '<';
            m_isMoved = true;
            m_pen += step;
        } else if (m_shown.isEmpty()) {
            m_shown << '<';
        }
    }

    void endShowing() {
        if (!m_shown.isEmpty()) {
            m_bytes << (m_isMoved ? "[" : "") << m_shown.view() << (m_isMoved ? ">]TJ\n" : ">Tj\n");
            m_shown.clear();
            m_isMoved = false;
        }
    }

    PdfFont& m_font;
    double m_start;
    TextPiece m_piece{};
    PdfBytes m_bytes;
    PdfBytes m_shown; ///< what the next operator shows
    bool m_isMoved = false;
    bool m_hasSpans = false;
    double m_pen = 0.0;
    double m_rise = 0.0;
};

void addOutlines(const GlyphCluster& cluster, QPainterPath& outlines) {
    for (const PlacedGlyph& glyph : cluster.glyphs) {
        outlines.addPath(cluster.font.pathForGlyph(glyph.index).translated(glyph.at));
    }
}

/// Tells whether the document can show the glyphs as text.
bool isShowable(const GlyphCluster& cluster, const PdfFont& font) {
    constexpr uint32_t mostGlyphs = 0xFFFF;
    const auto isGlyph = [](const PlacedGlyph& glyph) {
        return glyph.index != 0 && glyph.index <= mostGlyphs;
    };
    return font.isEmbeddable() && std::all_of(cluster.glyphs.begin(), cluster.glyphs.end(), isGlyph);
}

} // namespace

std::string beginSpan(const QString& characters) {
    return "/Span<</ActualText" + pdfText(characters) + ">>BDC\n";
}

int PdfTexts::indexOf(const QRawFont& font) {
    const auto known = std::find_if(m_fonts.begin(), m_fonts.end(),
                                    [&](const std::unique_ptr<PdfFont>& other) { return other->font() == font; });
    const auto index = static_cast<int>(known - m_fonts.begin());
    if (known == m_fonts.end()) {
        m_fonts.push_back(std::make_unique<PdfFont>(font));
    }
    return index;
}

PreparedText PdfTexts::prepared(const QString& text, const QFont& font) {
    PreparedText prepared;
    prepared.outlines.setFillRule(Qt::WindingFill);
    std::vector<PieceWriter> pieces;
    int pieceFont = -1;
    const double pixelsPerEm = font.pixelSize();
    for (const GlyphCluster& cluster : glyphClusters(text, font)) {
        if (cluster.glyphs.empty()) {
            continue;
        }
        const int index = indexOf(cluster.font);
        PdfFont& used = *m_fonts[static_cast<size_t>(index)];
        if (!isShowable(cluster, used)) {
            addOutlines(cluster, prepared.outlines);
            continue;
        }
        if (index != pieceFont) {
            pieces.emplace_back(used, index, cluster.glyphs[0].at.x() / pixelsPerEm);
            pieceFont = index;
        }
        pieces.back().add(cluster, pixelsPerEm);
    }
    for (PieceWriter& piece : pieces) {
        prepared.hasSpans = prepared.hasSpans || piece.hasSpans();
        prepared.pieces.push_back(piece.finish());
    }
    return prepared;
}

const PreparedText& PdfTexts::prepare(const QString& text, const QFont& font) {
    const auto isAsked = [&](const AskedFont& asked) {
        return asked.font == font;
    };
    if (m_lastAsked >= m_asked.size() || !isAsked(m_asked[m_lastAsked])) {
        const auto known = std::find_if(m_asked.begin(), m_asked.end(), isAsked);
        m_lastAsked = static_cast<size_t>(known - m_asked.begin());
        if (known == m_asked.end()) {
            m_asked.push_back({font, std::make_unique<Texts>()});
        }
    }
    return m_asked[m_lastAsked].texts->get(text, [&] { return prepared(text, font); });
}

std::string PdfTexts::writeFonts(PdfFile& file) const {
    std::string names;
    for (size_t i = 0; i < m_fonts.size(); ++i) {
        if (m_fonts[i]->isUsed()) {
            const int number = file.newNumber();
            m_fonts[i]->write(file, number);
            names += "/F" + std::to_string(i) + ' ' + pdfReference(number);
        }
    }
    return names;
}

} // namespace kelplot
