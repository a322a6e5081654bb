// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfFont.h"

#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <libdeflate.h>

#include "device/pdf/CompactFont.h"
#include "device/pdf/FontSubset.h"

namespace kelplot {
namespace {

constexpr double unitsPerEm = 1000.0; ///< of the numbers that PDF states of fonts

/// A number of two bytes in a table of a font, 0 where the table is shorter.
int numberAt(const QByteArray& table, int offset) {
    return offset + 2 <= table.size() ? qFromBigEndian<quint16>(table.constData() + offset) : 0;
}

/// Tells whether the maker of the font allows to embed parts of it.
bool mayBeEmbedded(const QRawFont& font) {
    constexpr int embeddingField = 8;
    constexpr int leave = 0xF;
    constexpr int restricted = 2;
    constexpr int noSubsets = 0x100;
    constexpr int bitmapsOnly = 0x200;
    const int bits = numberAt(font.fontTable("OS/2"), embeddingField);
    return (bits & leave) != restricted && (bits & (noSubsets | bitmapsOnly)) == 0;
}

/// Tells whether the font's own letters are slanted, as the font library decides it.
bool isSlantedItself(const QRawFont& font) {
    constexpr int selectionField = 62;
    constexpr int slanted = 0x201; // italic or oblique
    constexpr int macStyleField = 44;
    constexpr int macItalic = 2;
    const QByteArray metrics = font.fontTable("OS/2");
    if (!metrics.isEmpty()) {
        return (numberAt(metrics, selectionField) & slanted) != 0;
    }
    return (numberAt(font.fontTable("head"), macStyleField) & macItalic) != 0;
}

double slantOf(const QRawFont& font) {
    constexpr double usual = 0x366A / 65536.0; // what Qt leans upright letters by
    return font.style() != QFont::StyleNormal && !isSlantedItself(font) ? usual : 0.0;
}

std::string number(double value) {
    PdfBytes bytes;
    bytes.decimal(value, 2);
    return std::string(bytes.view().substr(0, bytes.size() - 1));
}

} // namespace

PdfFont::PdfFont(const QRawFont& font) : m_font(font), m_kind(findKind()), m_slant(slantOf(font)) {
}

PdfFont::Kind PdfFont::findKind() const {
    const bool varies = !m_font.fontTable("fvar").isEmpty(); // its tables hold other outlines than those in use
    if (varies || !mayBeEmbedded(m_font)) {
        return Kind::none;
    }
    if (!m_font.fontTable("glyf").isEmpty()) {
        return Kind::trueType;
    }
    return numbersGlyphsInOrder(m_font.fontTable("CFF ")) ? Kind::compact : Kind::none;
}

double PdfFont::widthOf(uint32_t glyph) const {
    constexpr double steps = 10.0; // of a unit that are stated
    QPointF advance;
    m_font.advancesForGlyphIndexes(&glyph, &advance, 1);
    return std::round(advance.x() / m_font.pixelSize() * unitsPerEm * steps) / steps;
}

PdfFont::Use PdfFont::use(uint32_t glyph, const QString& characters) {
    Glyph& known = m_glyphs[glyph];
    if (known.width < 0.0) {
        known.width = widthOf(glyph);
    }
    if (known.characters.isEmpty()) {
        known.characters = characters;
    }
    return {known.width, known.characters == characters && !characters.isEmpty()};
}

/// The font's name with six letters before it that tell this subset from others.
std::string PdfFont::baseName() const {
    constexpr int letters = 6;
    constexpr uint32_t alphabet = 26;
    uint32_t sum = 0;
    for (const auto& [glyph, facts] : m_glyphs) {
        sum = libdeflate_crc32(sum, &glyph, sizeof glyph);
    }
    std::string name;
    for (int i = 0; i < letters; ++i, sum /= alphabet) {
        name += static_cast<char>('A' + sum % alphabet);
    }
    name += '+';
    for (const QChar letter : m_font.familyName() + QLatin1Char('-') + m_font.styleName()) {
        if (letter.unicode() < 0x80 && (letter.isLetterOrNumber() || letter == QLatin1Char('-'))) {
            name += letter.toLatin1();
        }
    }
    return name;
}

int PdfFont::writeProgram(PdfFile& file) const {
    std::vector<uint32_t> glyphs;
    for (const auto& [glyph, facts] : m_glyphs) {
        glyphs.push_back(glyph);
    }
    PdfBytes program = fontSubset(m_font, glyphs, m_kind == Kind::compact ? "CFF " : nullptr);
    const std::string kind = m_kind == Kind::compact ? "/Subtype/CIDFontType0C" //
                                                     : "/Length1 " + std::to_string(program.size());
    return file.addStream(kind, std::move(program));
}

int PdfFont::writeDescriptor(PdfFile& file, const std::string& name, int program) const {
    constexpr int symbolic = 4; // the letters are not found by a standard encoding
    constexpr int italic = 64;
    constexpr double boldStem = 140.0;
    constexpr double usualStem = 80.0;
    const auto perEm = [&](double pixels) {
        return number(pixels / m_font.pixelSize() * unitsPerEm);
    };
    const QByteArray head = m_font.fontTable("head");
    const auto edge = [&](int offset) {
        return number(static_cast<qint16>(numberAt(head, offset)) * unitsPerEm / std::max(1.0, m_font.unitsPerEm()));
    };
    constexpr int boxField = 36;
    const bool isItalic = m_font.style() != QFont::StyleNormal;
    return file.addObject("<</Type/FontDescriptor/FontName/" + name + "/Flags " +
                          std::to_string(symbolic | (isItalic ? italic : 0)) + "/FontBBox[" + edge(boxField) + " " +
                          edge(boxField + 2) + " " + edge(boxField + 4) + " " + edge(boxField + 6) + "]/ItalicAngle " +
                          (isItalic ? "-12" : "0") + "/Ascent " + perEm(m_font.ascent()) + "/Descent " +
                          perEm(-m_font.descent()) + "/CapHeight " + perEm(m_font.capHeight()) + "/StemV " +
                          number(m_font.weight() > QFont::Medium ? boldStem : usualStem) +
                          (m_kind == Kind::compact ? "/FontFile3 " : "/FontFile2 ") + pdfReference(program) + ">>");
}

/// The characters for which the glyphs stand, for searching and copying.
PdfBytes PdfFont::characterMap() const {
    constexpr size_t mostLines = 100; // of a section
    PdfBytes map;
    map << "/CIDInit /ProcSet findresource begin 12 dict begin begincmap\n"
           "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
           "/CMapName/Adobe-Identity-UCS def/CMapType 2 def\n"
           "1 begincodespacerange<0000><FFFF>endcodespacerange\n";
    std::vector<std::pair<uint32_t, Glyph>> lines;
    std::copy_if(m_glyphs.begin(), m_glyphs.end(), std::back_inserter(lines),
                 [](const auto& glyph) { return !glyph.second.characters.isEmpty(); });
    for (size_t from = 0; from < lines.size(); from += mostLines) {
        const size_t to = std::min(from + mostLines, lines.size());
        map << static_cast<int64_t>(to - from) << " beginbfchar\n";
        for (size_t i = from; i < to; ++i) {
            map << '<';
            map.hex4(lines[i].first) << "><" << utf16Hex(lines[i].second.characters) << ">\n";
        }
        map << "endbfchar\n";
    }
    map << "endcmap CMapName currentdict/CMap defineresource pop end end\n";
    return map;
}

/// The widths of the glyphs, those of neighbouring numbers in one list.
std::string PdfFont::widths() const {
    PdfBytes list;
    int64_t next = -1;
    for (const auto& [glyph, facts] : m_glyphs) {
        if (glyph != next) {
            list << (next < 0 ? "" : "]") << int64_t{glyph} << '[';
        }
        list.decimal(facts.width, 1);
        next = int64_t{glyph} + 1;
    }
    list << ']';
    return std::string(list.view());
}

void PdfFont::write(PdfFile& file, int dictionary) const {
    const std::string name = baseName();
    const int descriptor = writeDescriptor(file, name, writeProgram(file));
    const bool isCompact = m_kind == Kind::compact;
    const int descendant = file.addObject(
        std::string("<</Type/Font/Subtype/") + (isCompact ? "CIDFontType0" : "CIDFontType2/CIDToGIDMap/Identity") +
        "/BaseFont/" + name + "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
        pdfReference(descriptor) + "/DW 0/W[" + widths() + "]>>");
    const int characters = file.addStream({}, characterMap());
    file.addObject(dictionary, "<</Type/Font/Subtype/Type0/BaseFont/" + name + "/Encoding/Identity-H/DescendantFonts[" +
                                   pdfReference(descendant) + "]/ToUnicode " + pdfReference(characters) + ">>");
}

} // namespace kelplot
