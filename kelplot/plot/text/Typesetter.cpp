// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/Typesetter.h"

#include "plot/text/MTextLayout.h"
#include "plot/text/TextLayout.h"

namespace kelplot {

const TextStyle& Typesetter::styleOf(uint32_t index) const {
    static const TextStyle plain;
    if (index < m_drawing.textStyles.size()) {
        return m_drawing.textStyles[index];
    }
    return m_drawing.textStyles.empty() ? plain : m_drawing.textStyles.front();
}

template <typename AnyText>
const PlacedText& Typesetter::placed(const AnyText& text) const {
    return m_placed.get(&text, [&] { return layOut(text, styleOf(text.style), m_fonts); });
}

template const PlacedText& Typesetter::placed(const Text&) const;
template const PlacedText& Typesetter::placed(const MText&) const;

} // namespace kelplot
