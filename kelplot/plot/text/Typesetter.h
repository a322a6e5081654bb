// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <unordered_map>

#include "base/BoundedCache.h"
#include "drawing/Drawing.h"
#include "plot/text/FontSet.h"
#include "plot/text/TextBlock.h"

namespace kelplot {

/// Lays out the texts of a drawing, which outlives this and stays as it is. What was laid out lately is kept: a text
/// is measured just before it is drawn, and blocks show it many times.
class Typesetter {
public:
    Typesetter(const Drawing& drawing, const FontTable& fonts) : m_drawing(drawing), m_fonts(fonts) {}

    /// Valid until the next text.
    const PlacedText& place(const Text& text) const { return placed(text); }
    const PlacedText& place(const MText& text) const { return placed(text); }

    /// What became of the fonts and characters of the texts placed so far.
    const FontReport& fonts() const { return m_fonts.report(); }

    const FontMetric& metric(const FontFace& face) const { return m_fonts.metric(face); }

private:
    template <typename AnyText>
    const PlacedText& placed(const AnyText& text) const;
    const TextStyle& styleOf(uint32_t index) const;

    const Drawing& m_drawing;
    mutable FontSet m_fonts; ///< remembers what it has looked up
    mutable BoundedCache<std::unordered_map<const void*, PlacedText>, 32768> m_placed; ///< by the text's address
};

} // namespace kelplot
