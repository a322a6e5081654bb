// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfResources.h"

#include <algorithm>
#include <cmath>

namespace kelplot {
namespace {

struct BlendName {
    QPainter::CompositionMode mode;
    const char* name;
};

constexpr BlendName blendNames[] = {
    {QPainter::CompositionMode_Multiply, "Multiply"},   {QPainter::CompositionMode_Screen, "Screen"},
    {QPainter::CompositionMode_Overlay, "Overlay"},     {QPainter::CompositionMode_Darken, "Darken"},
    {QPainter::CompositionMode_Lighten, "Lighten"},     {QPainter::CompositionMode_ColorDodge, "ColorDodge"},
    {QPainter::CompositionMode_ColorBurn, "ColorBurn"}, {QPainter::CompositionMode_HardLight, "HardLight"},
    {QPainter::CompositionMode_SoftLight, "SoftLight"}, {QPainter::CompositionMode_Difference, "Difference"},
    {QPainter::CompositionMode_Exclusion, "Exclusion"},
};

/// Modes that PDF does not have lay things over the page as usual.
const char* nameOf(QPainter::CompositionMode mode) {
    for (const BlendName& entry : blendNames) {
        if (entry.mode == mode) {
            return entry.name;
        }
    }
    return "Normal";
}

constexpr int opaqueThousandths = 1000;

} // namespace

int PdfResources::blend(double opacity, QPainter::CompositionMode mode) {
    if (opacity == 1.0 && mode == QPainter::CompositionMode_SourceOver) {
        return 0;
    }
    const std::pair<int, QPainter::CompositionMode> blend(static_cast<int>(std::lround(opacity * opaqueThousandths)),
                                                          mode);
    const auto known = std::find(m_blends.begin(), m_blends.end(), blend);
    const auto index = static_cast<int>(known - m_blends.begin());
    if (known == m_blends.end()) {
        m_blends.push_back(blend);
    }
    return index + 1;
}

std::string PdfResources::add(const char* category, char letter, int object) {
    std::string name = letter + std::to_string(object);
    m_entries[category][name] = object;
    return name;
}

void PdfResources::write(PdfFile& file, int number, const std::string& fonts) const {
    PdfBytes dictionary;
    dictionary << "<<";
    if (!fonts.empty()) {
        dictionary << "/Font<<" << fonts << ">>";
    }
    if (const auto& states = m_entries.find("ExtGState"); !m_blends.empty() || states != m_entries.end()) {
        dictionary << "/ExtGState<</B0<</ca 1/CA 1/BM/Normal>>";
        for (size_t i = 0; i < m_blends.size(); ++i) {
            dictionary << "/B" << static_cast<int64_t>(i + 1) << "<</ca ";
            dictionary.decimal(m_blends[i].first / double{opaqueThousandths}, 3) << "/CA ";
            dictionary.decimal(m_blends[i].first / double{opaqueThousandths}, 3)
                << "/BM/" << nameOf(m_blends[i].second) << ">>";
        }
        if (states != m_entries.end()) {
            for (const auto& [name, object] : states->second) {
                dictionary << '/' << name << ' ' << pdfReference(object);
            }
        }
        dictionary << ">>";
    }
    for (const auto& [category, entries] : m_entries) {
        if (category != "ExtGState") {
            dictionary << '/' << category << "<<";
            for (const auto& [name, object] : entries) {
                dictionary << '/' << name << ' ' << pdfReference(object);
            }
            dictionary << ">>";
        }
    }
    dictionary << ">>";
    file.addObject(number, std::string(dictionary.view()));
}

} // namespace kelplot
