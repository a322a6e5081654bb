// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <map>
#include <memory>
#include <string>

#include "render/FontChooser.h"
#include "render/FontStock.h"

namespace KelDriver::Internal {

/// The choosers of a map's fonts, one for each request, with the fonts that they choose from.
class FontChoosers {
public:
    /// Adds a font to the map. The choosers made so far are gone.
    void add(const std::wstring& faceName, const tagLOGFONTW& record);
    size_t count() const { return m_stock.mappedFonts().size(); }
    const tagLOGFONTW* find(const std::wstring& faceName) const { return m_stock.find(faceName); }

    /// Chooses fonts for texts that ask for a face name. Owned by this object; valid until a font is added or another
    /// chooser is asked for.
    FontChooser& chooserFor(const std::wstring& faceName);
    /// Chooses fonts for texts that ask for a record; all keep its weight and slant.
    FontChooser& chooserFor(const tagLOGFONTW& request);

private:
    void forget();
    /// Forgets the choosers from before there was an application, which know of no installed fonts.
    void lookForFonts();

    FontStock m_stock;
    std::map<std::wstring, std::unique_ptr<FontChooser>> m_byName; ///< each spelling its own
    std::map<FontStock::FontKey, std::unique_ptr<FontChooser>> m_byRecord;
};

} // namespace KelDriver::Internal
