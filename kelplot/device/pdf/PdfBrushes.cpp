// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfBrushes.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "device/pdf/Shading.h"

namespace kelplot {
namespace {

constexpr int patternSide = 8; ///< pixels after which Qt's patterns repeat

/// A tile of one of Qt's patterns, as it draws it: 1 where there is ink.
QImage patternTile(Qt::BrushStyle style) {
    QImage tile(patternSide, patternSide, QImage::Format_RGB32);
    tile.fill(Qt::white);
    QPainter painter(&tile);
    painter.fillRect(tile.rect(), QBrush(Qt::black, style));
    painter.end();
    QImage stencil(patternSide, patternSide, QImage::Format_Mono);
    stencil.fill(0);
    for (int y = 0; y < patternSide; ++y) {
        for (int x = 0; x < patternSide; ++x) {
            stencil.setPixel(x, y, tile.pixelColor(x, y) == Qt::black ? 1 : 0);
        }
    }
    return stencil;
}

void writeColour(PdfBytes& bytes, const QColor& colour) {
    constexpr int decimals = 3;
    bytes.decimal(colour.redF(), decimals).decimal(colour.greenF(), decimals).decimal(colour.blueF(), decimals)
        << "rg\n";
}

std::string matrixText(const QTransform& map) {
    constexpr int decimals = 8;
    PdfBytes bytes;
    bytes.decimal(map.m11(), decimals).decimal(map.m12(), decimals).decimal(map.m21(), decimals);
    bytes.decimal(map.m22(), decimals).decimal(map.dx(), decimals).decimal(map.dy(), decimals);
    return std::string(bytes.view());
}

} // namespace

std::string PdfBrushes::addTile(const QBrush& brush, const std::string& place) {
    const bool isTexture = brush.style() == Qt::TexturePattern;
    const QImage image = isTexture ? brush.textureImage() : patternTile(brush.style());
    const bool isStencil = !isTexture || image.depth() == 1;
    const std::string name = isStencil ? m_images.nameOfStencil(image) : m_images.nameOf(image, false);
    PdfBytes content;
    if (isStencil) {
        writeColour(content, brush.color());
    }
    content << image.width() << " 0 0 " << -image.height() << " 0 " << image.height() << " cm/" << name << " Do";
    const std::string size = std::to_string(image.width()) + ' ' + std::to_string(image.height());
    const std::string steps = "/XStep " + std::to_string(image.width()) + "/YStep " + std::to_string(image.height());
    const int tile = m_file.addStream("/Type/Pattern/PatternType 1/PaintType 1/TilingType 1/BBox[0 0 " + size + "]" +
                                          steps + "/Matrix[" + place + "]/Resources<</XObject<</" + name + ' ' +
                                          pdfReference(std::stoi(name.substr(1))) + ">>>>",
                                      std::move(content));
    return m_resources.add("Pattern", 'P', tile);
}

std::string PdfBrushes::tile(const QBrush& brush, const QTransform& place) {
    const std::string matrix = matrixText(place);
    std::string key = std::to_string(brush.style()) + ' ' + std::to_string(brush.color().rgb()) + ' ' + matrix;
    if (brush.style() == Qt::TexturePattern) {
        key += std::to_string(brush.textureImage().cacheKey());
    }
    std::string& name = m_tiles[key];
    if (name.empty()) {
        name = addTile(brush, matrix);
    }
    return name;
}

std::string PdfBrushes::shading(const QGradient& gradient, const QRectF& area) {
    return m_resources.add("Shading", 'S', m_file.addObject(shadingDictionary(gradient, area, ShadingPart::colours)));
}

std::string PdfBrushes::softMask(const QGradient& gradient, const QRectF& area) {
    const QGradientStops stops = gradient.stops();
    if (std::all_of(stops.begin(), stops.end(), [](const QGradientStop& stop) { return stop.second.alpha() == 255; })) {
        return {};
    }
    constexpr int decimals = 3;
    const int shading = m_file.addObject(shadingDictionary(gradient, area, ShadingPart::opacities));
    PdfBytes head;
    head << "/Type/XObject/Subtype/Form/Group<</S/Transparency/CS/DeviceGray>>/Resources<</Shading<</S "
         << pdfReference(shading) << ">>>>/BBox[";
    head.decimal(area.left(), decimals).decimal(area.top(), decimals).decimal(area.right(), decimals);
    head.decimal(area.bottom(), decimals) << ']';
    PdfBytes content;
    content << "/S sh";
    const int group = m_file.addStream(std::string(head.view()), std::move(content));
    return m_resources.add("ExtGState", 'M',
                           m_file.addObject("<</SMask<</S/Luminosity/G " + pdfReference(group) + ">>>>"));
}

} // namespace kelplot
