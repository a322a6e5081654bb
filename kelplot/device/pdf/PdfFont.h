// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QRawFont>
#include <QString>
#include <map>

#include "device/pdf/PdfFile.h"

namespace kelplot {

/// A font of a document. It notes which glyphs are used, and is embedded with these alone.
class PdfFont {
public:
    explicit PdfFont(const QRawFont& font);

    const QRawFont& font() const { return m_font; }
    /// Tells whether the font may be embedded and has outlines that PDF knows.
    bool isEmbeddable() const { return m_kind != Kind::none; }
    bool isUsed() const { return !m_glyphs.empty(); }
    /// How far letters lean to the right for each unit of height, because the font itself has no slanted ones.
    double slant() const { return m_slant; }

    /// What the document makes of a glyph.
    struct Use {
        double width;      ///< by which it moves on, in thousandths of the em square
        bool isUnderstood; ///< it is taken for the characters wherever it shows
    };

    /// Notes that a glyph is shown.
    ///
    /// @param characters  for which it stands; empty: for none alone
    Use use(uint32_t glyph, const QString& characters);

    /// Writes the font with all that belongs to it, its dictionary under this number.
    void write(PdfFile& file, int dictionary) const;

private:
    enum class Kind { none, trueType, compact };
    struct Glyph {
        double width = -1.0; ///< in thousandths of the em square, as the document states it; below 0: not known yet
        QString characters;  ///< for which it stands; empty: for none that are known
    };

    Kind findKind() const;
    double widthOf(uint32_t glyph) const;
    std::string baseName() const;
    int writeProgram(PdfFile& file) const;
    int writeDescriptor(PdfFile& file, const std::string& name, int program) const;
    PdfBytes characterMap() const;
    std::string widths() const;

    QRawFont m_font;
    Kind m_kind;
    double m_slant;
    std::map<uint32_t, Glyph> m_glyphs; ///< those that are used
};

} // namespace kelplot
