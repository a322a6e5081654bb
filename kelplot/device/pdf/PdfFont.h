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
    /// How far a glyph moves on, in thousandths of the em square, as the document states it.
    double width(uint32_t glyph) const;

    /// Notes that a glyph is shown.
    ///
    /// @param characters  for which it stands
    /// @return whether the document takes the glyph for these characters wherever it shows
    bool use(uint32_t glyph, const QString& characters);

    /// Writes the font with all that belongs to it, under the number of its dictionary.
    void write(PdfFile& file, int number) const;

private:
    enum class Kind { none, trueType, compact };

    Kind findKind() const;
    std::string baseName() const;
    int writeProgram(PdfFile& file) const;
    int writeDescriptor(PdfFile& file, const std::string& name, int program) const;
    PdfBytes characterMap() const;
    std::string widths() const;

    QRawFont m_font;
    Kind m_kind;
    double m_slant;
    std::map<uint32_t, QString> m_glyphs; ///< those that are used, and what they stand for
};

} // namespace kelplot
