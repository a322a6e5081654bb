// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <bitset>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <QRawFont>

namespace KelDriver::Internal {

/// Which characters one font can show by itself. The font is asked once for each page of 256 characters.
class FontCoverage {
public:
    explicit FontCoverage(const QRawFont& source);

    bool shows(wchar_t character);
    /// True when the font can show every character of the cluster that is not blank, as it stands or composed.
    bool showsAll(std::wstring_view cluster);

private:
    using Page = std::bitset<256>;

    bool showsEach(std::wstring_view cluster);

    QRawFont m_font;
    std::vector<std::unique_ptr<Page>> m_pages; ///< null: not asked for yet
};

} // namespace KelDriver::Internal
