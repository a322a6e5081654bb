// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <cstdint>

#include <QBrush>
#include <QPainter>

namespace {

constexpr int patternSize = 8;

// Indexed by fill style; the two texture patterns come from the bitmap table.
constexpr Qt::BrushStyle brushStyles[] = {
    Qt::SolidPattern, Qt::TexturePattern, Qt::CrossPattern,   Qt::DiagCrossPattern, Qt::HorPattern,
    Qt::FDiagPattern, Qt::BDiagPattern,   Qt::TexturePattern, Qt::VerPattern,
};
constexpr uint32_t brushStyleCount = sizeof(brushStyles) / sizeof(brushStyles[0]);

QImage textureFor(HT_PlotStyle::FillStyle style, const QColor& ink) {
    QImage texture(patternSize, patternSize, QImage::Format_RGB32);
    for (int y = 0; y < patternSize; ++y) {
        const unsigned row = HT_PlotStyle::FillStyleBitmapBuffer[style][y];
        for (int x = 0; x < patternSize; ++x) {
            const bool isBackground = (row >> (patternSize - 1 - x) & 1U) != 0;
            texture.setPixel(x, y, isBackground ? QColor(Qt::white).rgb() : ink.rgb());
        }
    }
    return texture;
}

/// The brush of a fill style; none for an unknown one. A texture is built where there is none yet, and keeps the colour
/// of its first use from then on, which is part of the interface.
QBrush brushFor(HT_PlotStyle::FillStyle style, const QColor& ink, QImage& squares, QImage& dots) {
    const auto index = static_cast<uint32_t>(style);
    if (index >= brushStyleCount) {
        return {};
    }
    if (brushStyles[index] != Qt::TexturePattern) {
        return {ink, brushStyles[index]};
    }
    QImage& texture = style == HT_PlotStyle::FillSquares ? squares : dots;
    if (texture.isNull()) {
        texture = textureFor(style, ink);
    }
    QBrush brush;
    brush.setTextureImage(texture);
    return brush;
}

} // namespace

void QTRenderer::SetColor(HT_Color ink) {
    lastPointX = INT32_MAX;
    lastPointY = INT32_MAX;
    // Opaque whatever `alpha` holds, which is part of the interface: an opacity is set after its colour.
    color =
        QColor(static_cast<int>(ink & 0xFFU), static_cast<int>(ink >> 8 & 0xFFU), static_cast<int>(ink >> 16 & 0xFFU));
    CreatePen();
    CreateBrush();
}

void QTRenderer::SetAlpha(unsigned char opacity) {
    color.setAlpha(opacity);
    alpha = opacity;
    CreatePen();
    CreateBrush();
}

void QTRenderer::SetFillStyle(HT_PlotStyle::FillStyle style) {
    fillStyle = style;
    CreateBrush();
}

void QTRenderer::CreateBrush() {
    if (painter != nullptr) {
        painter->setBrush(brushFor(fillStyle, color, squaresTexture, dotsTexture));
    }
}
