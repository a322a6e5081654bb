// SPDX-License-Identifier: BSD-3-Clause
#include "render/FontCoverage.h"

#include <algorithm>
#include <string>

#include <QString>

#include "render/TextCluster.h"
#include "render/WideText.h"

namespace KelDriver::Internal {

namespace {

constexpr uint32_t pageSize = 256;
constexpr uint32_t characterCount = 0x110000;

bool isSurrogate(uint32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

} // namespace

FontCoverage::FontCoverage(const QRawFont& source) : m_font(source) {
}

bool FontCoverage::shows(wchar_t character) {
    const auto code = static_cast<char32_t>(character);
    if (code >= characterCount || isSurrogate(code)) {
        return false;
    }
    const uint32_t index = code / pageSize;
    if (index >= m_pages.size()) {
        m_pages.resize(index + 1);
    }
    std::unique_ptr<Page>& page = m_pages[index];
    if (page == nullptr) {
        page = std::make_unique<Page>();
        for (uint32_t i = 0; i < pageSize; ++i) {
            page->set(i, m_font.supportsCharacter(index * pageSize + i));
        }
    }
    return page->test(code % pageSize);
}

bool FontCoverage::showsEach(std::wstring_view cluster) {
    return std::all_of(cluster.begin(), cluster.end(),
                       [this](wchar_t character) { return shows(character) || isBlank(character); });
}

bool FontCoverage::showsAll(std::wstring_view cluster) {
    if (showsEach(cluster)) {
        return true;
    }
    if (cluster.size() == 1) {
        return false;
    }
    // A letter and its mark are drawn as the one glyph that stands for both, where the font has it.
    return showsEach(toQString(cluster).normalized(QString::NormalizationForm_C).toStdWString());
}

} // namespace KelDriver::Internal
