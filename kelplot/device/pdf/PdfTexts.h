// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QFont>
#include <QPainterPath>
#include <QString>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/BoundedCache.h"
#include "device/pdf/GlyphClusters.h"
#include "device/pdf/PdfFont.h"

namespace kelplot {

/// A part of a text in one font, ready to be shown with an em square of one unit.
struct TextPiece {
    int font;            ///< by its index in the document
    double start;        ///< along the base line, in em squares
    double slant;        ///< how far letters lean to the right for each unit of height
    std::string showing; ///< the operators
};

/// Begins a part of a page for which other characters stand than those of its glyphs.
std::string beginSpan(const QString& characters);
constexpr const char* endSpan = "EMC\n";

/// A text as a document shows it.
struct PreparedText {
    std::vector<TextPiece> pieces;
    bool hasSpans = false; ///< parts of it state the characters for which they stand
    QPainterPath outlines; ///< of glyphs that the document cannot show as text, in the units of the font, y downwards
};

/// The fonts of a document and the texts in them.
class PdfTexts {
public:
    /// The text as it is to be shown. Valid until the next one.
    const PreparedText& prepare(const QString& text, const QFont& font);

    /// Writes the fonts that were used and returns the entries of a dictionary that names them F0, F1 and so on.
    std::string writeFonts(PdfFile& file) const;

private:
    PreparedText prepared(const QString& text, const QFont& font);
    int indexOf(const QRawFont& font);

    static constexpr size_t mostTexts = 4000;
    using Texts = BoundedCache<std::unordered_map<QString, PreparedText>, mostTexts>;
    struct AskedFont {
        QFont font;
        std::unique_ptr<Texts> texts;
    };

    std::vector<std::unique_ptr<PdfFont>> m_fonts;
    std::vector<AskedFont> m_asked;
    size_t m_lastAsked = 0;
};

} // namespace kelplot
