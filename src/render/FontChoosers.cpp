// SPDX-License-Identifier: BSD-3-Clause
#include "render/FontChoosers.h"

namespace KelDriver::Internal {

void FontChoosers::add(const std::wstring& faceName, const tagLOGFONTW& record) {
    m_stock.add(faceName, record);
    forget();
}

void FontChoosers::forget() {
    m_byName.clear();
    m_byRecord.clear();
}

void FontChoosers::lookForFonts() {
    if (m_stock.findsNewFonts()) {
        forget();
    }
}

FontChooser& FontChoosers::chooserFor(const std::wstring& faceName) {
    lookForFonts();
    std::unique_ptr<FontChooser>& chooser = m_byName[faceName];
    if (chooser == nullptr) {
        chooser = std::make_unique<FontChooser>(m_stock, faceName);
    }
    return *chooser;
}

FontChooser& FontChoosers::chooserFor(const tagLOGFONTW& request) {
    lookForFonts();
    std::unique_ptr<FontChooser>& chooser = m_byRecord[FontStock::keyOf(request)];
    if (chooser == nullptr) {
        chooser = std::make_unique<FontChooser>(m_stock, request);
    }
    return *chooser;
}

} // namespace KelDriver::Internal
