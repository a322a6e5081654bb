// SPDX-License-Identifier: BSD-3-Clause
#include "render/FontChooser.h"

#include <cstdint>
#include <iterator>

#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>

#include "render/FontCoverage.h"
#include "render/FontStock.h"
#include "render/LogFont.h"
#include "render/WideText.h"

namespace KelDriver::Internal {

namespace {

constexpr int32_t normalWeight = 400;
constexpr uint8_t defaultCharSet = 1; // whatever the font has

/// The families that the system draws these characters with when it is asked for this font.
QStringList systemChoice(const tagLOGFONTW& record, std::wstring_view cluster) {
    QTextLayout layout(toQString(cluster), usualSizeFontFor(record));
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QStringList families;
    for (const QGlyphRun& run : layout.glyphRuns()) {
        families.append(run.rawFont().familyName());
    }
    return families;
}

} // namespace

tagLOGFONTW inStyleOf(const tagLOGFONTW& request, tagLOGFONTW font) {
    font.lfHeight = request.lfHeight;
    font.lfWidth = request.lfWidth;
    font.lfEscapement = request.lfEscapement;
    font.lfOrientation = request.lfOrientation;
    font.lfWeight = request.lfWeight;
    font.lfItalic = request.lfItalic;
    font.lfUnderline = request.lfUnderline;
    font.lfStrikeOut = request.lfStrikeOut;
    font.lfQuality = request.lfQuality;
    return font;
}

FontChooser::FontChooser(FontStock& fonts, const std::wstring& faceName) : m_stock(fonts) {
    if (const tagLOGFONTW* known = m_stock.find(faceName)) {
        addCandidate(*known);
    } else {
        tagLOGFONTW request{};
        request.lfWeight = normalWeight;
        setFaceName(request, faceName);
        addCandidate(request);
    }
    for (const FontStock::MappedFont& font : m_stock.mappedFonts()) {
        addCandidate(font.record);
    }
    m_listed = m_candidates.size();
}

FontChooser::FontChooser(FontStock& fonts, const tagLOGFONTW& request) : m_stock(fonts) {
    addCandidate(request);
    if (const tagLOGFONTW* known = m_stock.find(faceNameOf(request))) {
        addCandidate(inStyleOf(request, *known));
    }
    for (const FontStock::MappedFont& font : m_stock.mappedFonts()) {
        addCandidate(inStyleOf(request, font.record));
    }
    m_listed = m_candidates.size();
}

void FontChooser::addCandidate(const tagLOGFONTW& record) {
    m_candidates.push_back({record, m_stock.coverageOf(record)});
}

std::optional<size_t> FontChooser::listedFont(std::wstring_view cluster) const {
    for (size_t font = 0; font < m_listed; ++font) {
        FontCoverage* coverage = m_candidates[font].coverage;
        if (coverage != nullptr && coverage->showsAll(cluster)) {
            return font;
        }
    }
    return std::nullopt;
}

/// The number of a system font, if it can show the cluster.
std::optional<size_t> FontChooser::familyFont(const QString& family, std::wstring_view cluster) {
    tagLOGFONTW font{};
    font.lfCharSet = defaultCharSet;
    const std::wstring faceName = family.toStdWString();
    if (faceName.size() >= std::size(font.lfFaceName)) {
        return std::nullopt; // no record can name it
    }
    setFaceName(font, faceName);
    const tagLOGFONTW record = inStyleOf(m_candidates.front().record, font);
    FontCoverage* coverage = m_stock.coverageOf(record);
    if (coverage == nullptr || !coverage->showsAll(cluster)) {
        return std::nullopt;
    }
    for (size_t known = m_listed; known < m_candidates.size(); ++known) {
        if (m_candidates[known].coverage == coverage) {
            return known;
        }
    }
    m_candidates.push_back({record, coverage});
    return m_candidates.size() - 1;
}

std::optional<size_t> FontChooser::systemFont(std::wstring_view cluster) {
    if (m_stock.families().isEmpty()) {
        return std::nullopt;
    }
    QStringList families = systemChoice(m_candidates.front().record, cluster);
    families << m_stock.defaultFamily() << m_stock.families();
    for (const QString& family : families) {
        if (const std::optional<size_t> font = familyFont(family, cluster)) {
            return font;
        }
    }
    return std::nullopt;
}

std::optional<size_t> FontChooser::fontForAll(std::wstring_view cluster) {
    if (const std::optional<size_t> font = listedFont(cluster)) {
        return font;
    }
    const std::wstring characters(cluster);
    const auto known = m_beyond.find(characters);
    if (known != m_beyond.end()) {
        return known->second;
    }
    const std::optional<size_t> font = systemFont(cluster);
    m_beyond.emplace(characters, font);
    return font;
}

size_t FontChooser::choose(std::wstring_view cluster) {
    if (const std::optional<size_t> font = fontForAll(cluster)) {
        return *font;
    }
    return cluster.size() > 1 ? choose(cluster.substr(0, 1)) : 0;
}

} // namespace KelDriver::Internal
