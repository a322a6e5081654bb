// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/svg/SvgPaints.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include "device/vector/JpegStream.h"

namespace kelplot {
namespace {

/// One copy of what a brush of a pattern repeats.
QImage tileOf(const QBrush& brush) {
    if (brush.style() == Qt::TexturePattern) {
        QImage texture = brush.textureImage();
        if (texture.depth() == 1) { // of a bitmap: the brush's colour on nothing
            texture = texture.convertToFormat(QImage::Format_Indexed8);
            texture.setColorTable({0, brush.color().rgba()});
        }
        return texture;
    }
    constexpr int side = 8; // of all of the painter's own patterns
    QImage tile(side, side, QImage::Format_ARGB32);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.fillRect(tile.rect(), QBrush(brush.color(), brush.style()));
    return tile;
}

QByteArray fileOf(const QImage& image) {
    QByteArray file;
    QBuffer buffer(&file);
    image.save(&buffer, "png");
    return file;
}

const char* spreadOf(QGradient::Spread spread) {
    switch (spread) {
    case QGradient::RepeatSpread:
        return " spreadMethod=\"repeat\"";
    case QGradient::ReflectSpread:
        return " spreadMethod=\"reflect\"";
    case QGradient::PadSpread:
        break;
    }
    return "";
}

} // namespace

QByteArray svgColour(const QColor& colour) {
    return colour.name(QColor::HexRgb).toLatin1();
}

QByteArray SvgPaints::nextName(const char* kind) {
    return kind + QByteArray::number(++m_names);
}

QByteArray SvgPaints::paintOf(const PageBrush& brush) {
    if (brush.brush.style() == Qt::SolidPattern) {
        return svgColour(brush.brush.color());
    }
    const QByteArray name = nextName("p");
    if (brush.brush.gradient() != nullptr) {
        writeGradient(brush, name);
    } else {
        writePattern(brush, name);
    }
    return "url(#" + name + ")";
}

void SvgPaints::writeGradient(const PageBrush& brush, const QByteArray& name) {
    const QGradient& gradient = *brush.brush.gradient();
    const bool isRadial = gradient.type() == QGradient::RadialGradient;
    const char* const element = isRadial ? "radialGradient" : "linearGradient";
    m_stream << "<" << element << " id=\"" << name << R"(" gradientUnits="userSpaceOnUse")";
    const auto attribute = [&](const char* key, double value) {
        m_stream << " " << key << "=\"";
        m_stream.addExact(value);
        m_stream << "\"";
    };
    if (isRadial) {
        const auto& radial = static_cast<const QRadialGradient&>(gradient);
        attribute("cx", radial.center().x());
        attribute("cy", radial.center().y());
        attribute("r", radial.centerRadius());
        attribute("fx", radial.focalPoint().x());
        attribute("fy", radial.focalPoint().y());
    } else {
        const auto& linear = static_cast<const QLinearGradient&>(gradient);
        attribute("x1", linear.start().x());
        attribute("y1", linear.start().y());
        attribute("x2", linear.finalStop().x());
        attribute("y2", linear.finalStop().y());
    }
    m_stream << spreadOf(gradient.spread());
    if (!brush.place.isIdentity()) {
        m_stream << " gradientTransform=\"";
        m_stream.addMatrix(brush.place);
        m_stream << "\"";
    }
    m_stream << ">";
    for (const QGradientStop& stop : gradient.stops()) {
        m_stream << "<stop";
        attribute("offset", stop.first);
        m_stream << " stop-color=\"" << svgColour(stop.second) << "\"";
        if (stop.second.alpha() != 255) {
            attribute("stop-opacity", stop.second.alphaF());
        }
        m_stream << "/>";
    }
    m_stream << "</" << element << ">\n";
}

void SvgPaints::writePattern(const PageBrush& brush, const QByteArray& name) {
    const QImage tile = tileOf(brush.brush);
    const QByteArray image = imageOf(tile);
    m_stream << "<pattern id=\"" << name << R"(" patternUnits="userSpaceOnUse" width=")" << tile.width()
             << "\" height=\"" << tile.height() << "\" patternTransform=\"";
    m_stream.addMatrix(brush.place);
    m_stream << "\"><use xlink:href=\"" << image << "\"/></pattern>\n";
}

QByteArray SvgPaints::imageOf(const QImage& image) {
    const JpegStream jpeg = jpegOf(m_file, image);
    const QByteArray file = jpeg.isEmpty() ? fileOf(image) : jpeg.bytes;
    constexpr int digits = 16;
    const QByteArray name = "i" + QCryptographicHash::hash(file, QCryptographicHash::Sha1).toHex().left(digits);
    if (!m_images.contains(name)) {
        m_images.insert(name);
        m_stream << "<defs><image id=\"" << name << "\" width=\"" << image.width() << "\" height=\"" << image.height()
                 << R"(" preserveAspectRatio="none" xlink:href="data:image/)" << (jpeg.isEmpty() ? "png" : "jpeg")
                 << ";base64," << file.toBase64() << "\"/></defs>\n";
    }
    return "#" + name;
}

} // namespace kelplot
