// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/HatchGradientDecoder.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

/// A colour mixed with black below a half, and with white above.
Colour tinted(Colour colour, double tint) {
    uint32_t mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const double part = colour.value >> shift & 0xFF;
        const double value = tint < 0.5 ? part * tint * 2.0 : part + (255.0 - part) * (tint * 2.0 - 1.0);
        mixed |= static_cast<uint32_t>(std::lround(value)) << shift;
    }
    return {Colour::Kind::trueColour, mixed};
}

} // namespace

void HatchGradientDecoder::addColour(const Colour& colour) {
    (m_colours == 0 ? m_gradient.first : m_gradient.second) = colour;
    ++m_colours;
}

void HatchGradientDecoder::take(const Group& group) {
    switch (group.code) {
    case 63: // followed by 421 where there is a true colour too
        addColour({Colour::Kind::index, static_cast<uint32_t>(std::clamp(toInteger(group.value), 1, 255))});
        break;
    case 421:
        if (m_lastCode == 63 && m_colours > 0) {
            --m_colours;
        }
        addColour({Colour::Kind::trueColour, static_cast<uint32_t>(toInteger(group.value)) & 0xFFFFFF});
        break;
    case 450:
        m_isGradient = toInteger(group.value) == 1;
        break;
    case 452:
        m_hasOneColour = toInteger(group.value) == 1;
        break;
    case 460:
        m_gradient.angle = toReal(group.value);
        break;
    case 461:
        m_gradient.shift = std::clamp(toReal(group.value), 0.0, 1.0);
        break;
    case 462:
        m_tint = std::clamp(toReal(group.value), 0.0, 1.0);
        break;
    case 470:
        m_gradient.name = QByteArray::fromStdString(std::string(trimmed(group.value))).toUpper().toStdString();
        break;
    default:
        break;
    }
    m_lastCode = group.code;
}

std::optional<HatchGradient> HatchGradientDecoder::finish() const {
    if (!m_isGradient || m_colours == 0) {
        return std::nullopt;
    }
    HatchGradient gradient = m_gradient;
    if (m_hasOneColour && m_colours == 1) {
        gradient.second = tinted(gradient.first, m_tint);
    }
    return gradient;
}

} // namespace kelplot
