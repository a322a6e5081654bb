// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <QString>

#include "keldriver/Win32Types.h"

namespace KelDriver::Internal {

class FontCoverage;
class FontStock;

/// `font` as it appears in a text that asks for `request`: in the size, weight, slant and lines of the latter.
tagLOGFONTW inStyleOf(const tagLOGFONTW& request, tagLOGFONTW font);

/// Chooses the fonts of texts that make the same request: the requested one, then those of the map, then the
/// system's. Fonts are identified by numbers that stay the same for the chooser's life; 0 is the requested one.
class FontChooser {
public:
    FontChooser(FontStock& fonts, const std::wstring& faceName);
    FontChooser(FontStock& fonts, const tagLOGFONTW& request);

    /// The font for a cluster: one that can show all of it, else one for its first character, else the requested one.
    size_t choose(std::wstring_view cluster);
    /// Whether a single font can show all of a cluster.
    bool hasFontForAll(std::wstring_view cluster) { return fontForAll(cluster).has_value(); }
    const tagLOGFONTW& record(size_t font) const { return m_candidates[font].record; }

private:
    struct Candidate {
        tagLOGFONTW record;
        FontCoverage* coverage; ///< null: not installed, shows nothing; owned by the stock
    };

    void addCandidate(const tagLOGFONTW& record);
    std::optional<size_t> listedFont(std::wstring_view cluster) const;
    std::optional<size_t> systemFont(std::wstring_view cluster);
    std::optional<size_t> familyFont(const QString& family, std::wstring_view cluster);
    std::optional<size_t> fontForAll(std::wstring_view cluster);

    FontStock& m_stock;
    std::vector<Candidate> m_candidates;
    size_t m_listed = 0; ///< the requested font and those of the map; system fonts follow
    /// The system's fonts for clusters that no listed font can show; none where no font can show all of one.
    std::unordered_map<std::wstring, std::optional<size_t>> m_beyond;
};

} // namespace KelDriver::Internal
