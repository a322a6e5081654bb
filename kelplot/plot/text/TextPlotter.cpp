// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/TextPlotter.h"

#include "base/Angles.h"
#include "plot/pen/Ink.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace kelplot {

namespace {

constexpr double defaultScale = 1.0; ///< of the renderer for everything else

/// Where the em square of a run lies in device units.
struct EmSquare {
    Vec2 corner; ///< the start of the base line
    Vec2 right;  ///< as long as the square is wide
    Vec2 down;   ///< as long as it is high

    bool hasArea() const { return corner.isFinite() && std::isnormal(cross(right, down)); }
};

EmSquare emSquareOf(const TextRun& run, const PlanMap& block) {
    const Affine2 place = run.place();
    return {block.mapPoint(run.origin), block.mapDirection(Vec2{place.a, place.b}),
            block.mapDirection(Vec2{-place.c, -place.d})};
}

HT_Font fontOf(const FontFace& face, double rotation) {
    HT_Font font{};
    font.height = emUnits;
    font.rotation = degreesFromRadians(rotation);
    font.bold = face.bold ? 1 : 0;
    font.italic = face.italic ? 1 : 0;
    const std::wstring family = face.family.toStdWString();
    std::copy_n(family.begin(), std::min(family.size(), std::size(font.faceName)), font.faceName);
    return font;
}

} // namespace

std::optional<TextCall> textCallFor(const TextRun& run, const PlanMap& block) {
    const EmSquare square = emSquareOf(run, block);
    if (!square.hasArea()) {
        return std::nullopt;
    }
    const double length = square.right.length();
    const double sign = cross(square.right, square.down) > 0.0 ? 1.0 : -1.0; // y grows downwards here
    const Vec2 along = square.right * (sign / length);
    const double height = cross(along, square.down);
    TextCall call;
    call.scale = height / emUnits;
    call.font = fontOf(run.face, std::atan2(-along.y, along.x));
    call.position = {square.corner.x / call.scale, square.corner.y / call.scale};
    call.obliqueAngle = -std::atan(dot(along, square.down) / height);
    call.widthFactor = sign * length / height;
    return call;
}

void TextPlotter::drawOutlines(const TextRun& run, const PlanMap& block) {
    if (const auto call = textCallFor(run, block)) {
        std::wstring text = run.text.toStdWString();
        m_renderer.setScale(call->scale);
        m_renderer.DrawText(text.data(), static_cast<int>(text.size()), call->font, call->position, call->obliqueAngle,
                            call->widthFactor, nullptr);
        m_renderer.setScale(defaultScale);
    }
}

void TextPlotter::draw(const TextRun& run, const PlanMap& block, HT_Color ink, uint8_t opacity) {
    if (m_direct == nullptr) {
        drawOutlines(run, block);
        return;
    }
    const EmSquare square = emSquareOf(run, block);
    if (square.hasArea()) {
        const Vec2 right = square.right * (1.0 / emUnits);
        const Vec2 down = square.down * (1.0 / emUnits);
        m_direct->drawText(run.text, m_texts.metric(run.face).font(),
                           {right.x, right.y, down.x, down.y, square.corner.x, square.corner.y},
                           colourOf(ink, opacity));
    }
}

} // namespace kelplot
