// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/svg/SvgSink.h"

#include <algorithm>
#include <cmath>

#include "device/PlotMark.h"

namespace kelplot {
namespace {

QByteArray lengthText(double length) {
    return QByteArray::number(length, 'g', 6);
}

QByteArray attribute(const char* name, const QByteArray& value) {
    return QByteArray(" ") + name + "=\"" + value + "\"";
}

/// Nothing where a paint covers what is below it.
QByteArray opacityAttribute(const char* name, double opacity) {
    constexpr int digits = 3;
    return opacity < 1.0 ? attribute(name, QByteArray::number(opacity, 'g', digits)) : QByteArray();
}

/// How CSS calls a way of mixing colours; null for those that it does not have, which are drawn plainly.
const char* blendName(QPainter::CompositionMode mode) {
    constexpr struct {
        QPainter::CompositionMode mode;
        const char* name;
    } names[] = {
        {QPainter::CompositionMode_Multiply, "multiply"},    {QPainter::CompositionMode_Screen, "screen"},
        {QPainter::CompositionMode_Overlay, "overlay"},      {QPainter::CompositionMode_Darken, "darken"},
        {QPainter::CompositionMode_Lighten, "lighten"},      {QPainter::CompositionMode_ColorDodge, "color-dodge"},
        {QPainter::CompositionMode_ColorBurn, "color-burn"}, {QPainter::CompositionMode_HardLight, "hard-light"},
        {QPainter::CompositionMode_SoftLight, "soft-light"}, {QPainter::CompositionMode_Difference, "difference"},
        {QPainter::CompositionMode_Exclusion, "exclusion"}};
    const auto* const found =
        std::find_if(std::begin(names), std::end(names), [&](const auto& entry) { return entry.mode == mode; });
    return found == std::end(names) ? nullptr : found->name;
}

} // namespace

SvgSink::SvgSink(QIODevice& target, QSizeF page, double unitsPerMillimetre, const QString& title)
    : m_stream(target), m_paints(m_stream), m_page(QPointF(0.0, 0.0), page) {
    m_stream << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\""
             << lengthText(page.width() / unitsPerMillimetre) << "mm\" height=\""
             << lengthText(page.height() / unitsPerMillimetre) << "mm\" viewBox=\"0 0 " << page.width() << " "
             << page.height() << "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n<title>"
             << title << "</title>\n<desc>" << plotMark << "</desc>\n";
}

void SvgSink::finish() {
    closeGroups();
    m_stream << "</svg>\n";
    m_stream.flush();
}

QPaintEngine::PaintEngineFeatures SvgSink::features() const {
    return QPaintEngine::PaintEngineFeatures(QPaintEngine::LinearGradientFill) | QPaintEngine::RadialGradientFill |
           QPaintEngine::PatternBrush | QPaintEngine::PatternTransform | QPaintEngine::MaskedBrush |
           QPaintEngine::PorterDuff | QPaintEngine::BlendModes;
}

void SvgSink::writeClip(const PageShape& clip, const QByteArray& name, const QByteArray& outer) {
    m_stream << "<clipPath id=\"" << name << "\"";
    if (!outer.isEmpty()) {
        m_stream << attribute("clip-path", "url(#" + outer + ")");
    }
    QRectF box;
    if (clip.isRectangle(box)) {
        m_stream << "><rect x=\"" << box.x() << "\" y=\"" << box.y() << "\" width=\"" << box.width() << "\" height=\""
                 << box.height() << "\"/></clipPath>\n";
        return;
    }
    m_stream << "><path";
    if (clip.rule == Qt::OddEvenFill) {
        m_stream << " clip-rule=\"evenodd\"";
    }
    m_stream << " d=\"";
    m_stream.addPathData(clip);
    m_stream << "\"/></clipPath>\n";
}

QByteArray SvgSink::nameOfClips(const std::vector<PageShape>& clips) {
    const auto known = std::find_if(m_recentClips.begin(), m_recentClips.end(),
                                    [&](const NamedClips& recent) { return recent.first == clips; });
    if (known != m_recentClips.end()) {
        return known->second;
    }
    closeGroups();
    QByteArray name;
    for (const PageShape& clip : clips) {
        const QByteArray outer = name;
        name = "c" + QByteArray::number(++m_clipCount);
        writeClip(clip, name, outer);
    }
    constexpr size_t mostRecent = 8;
    if (m_recentClips.size() == mostRecent) {
        m_recentClips.pop_front();
    }
    m_recentClips.emplace_back(clips, name);
    return name;
}

/// A clip that leaves the whole page is none.
void SvgSink::setClips(const std::vector<PageShape>& clips) {
    std::vector<PageShape> cutting;
    std::copy_if(clips.begin(), clips.end(), std::back_inserter(cutting), [&](const PageShape& clip) {
        QRectF box;
        return !clip.isRectangle(box) || !box.contains(m_page);
    });
    m_clip = cutting.empty() ? QByteArray() : nameOfClips(cutting);
}

void SvgSink::closeLayer() {
    if (!m_style.isEmpty()) {
        m_stream << "</g>\n";
    }
    if (!m_groupLayer.isEmpty()) {
        m_stream << "</g>\n";
    }
    m_style.clear();
    m_groupLayer.clear();
}

void SvgSink::closeGroups() {
    closeLayer();
    if (!m_groupClip.isEmpty()) {
        m_stream << "</g>\n";
    }
    m_groupClip.clear();
}

/// Sees to it that a group with these attributes is open, within one for the layer and that within one for the clip:
/// layers change more often than clips.
void SvgSink::useStyle(const QByteArray& style) {
    if (m_groupClip != m_clip) {
        closeGroups();
        if (!m_clip.isEmpty()) {
            m_stream << "<g clip-path=\"url(#" << m_clip << ")\">\n";
        }
        m_groupClip = m_clip;
    }
    if (m_groupLayer != m_layer) {
        closeLayer();
        if (!m_layer.isEmpty()) {
            m_stream << "<g data-layer=\"" << m_layer << "\">\n";
        }
        m_groupLayer = m_layer;
    }
    if (m_style != style) {
        if (!m_style.isEmpty()) {
            m_stream << "</g>\n";
        }
        m_stream << "<g" << style << ">\n";
        m_style = style;
    }
}

/// Begins an element of a style. A group would keep apart what a blend mode is to mix, so such an element stands alone
/// and has its clip itself.
void SvgSink::beginElement(const char* element, const QByteArray& style, const PageBlend& blend) {
    const char* const mixing = blendName(blend.mode);
    if (mixing == nullptr) {
        useStyle(style);
        m_stream << "<" << element;
        return;
    }
    closeGroups();
    m_stream << "<" << element << style;
    if (!m_layer.isEmpty()) {
        m_stream << " data-layer=\"" << m_layer << "\"";
    }
    if (!m_clip.isEmpty()) {
        m_stream << attribute("clip-path", "url(#" + m_clip + ")");
    }
    m_stream << " style=\"mix-blend-mode:" << mixing << "\"";
}

void SvgSink::fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) {
    if (brush.brush.style() != Qt::SolidPattern) {
        closeGroups(); // what the paint refers to stands outside
    }
    const double opacity =
        brush.brush.style() == Qt::SolidPattern ? brush.brush.color().alphaF() * blend.opacity : blend.opacity;
    const QByteArray style = attribute("fill", m_paints.paintOf(brush)) + opacityAttribute("fill-opacity", opacity);
    beginElement("path", style, blend);
    if (shape.rule == Qt::OddEvenFill) {
        m_stream << " fill-rule=\"evenodd\"";
    }
    m_stream << " d=\"";
    m_stream.addPathData(shape);
    m_stream << "\"/>\n";
}

QByteArray SvgSink::penStyle(const QPen& pen, double opacity) {
    QByteArray style = attribute("stroke", svgColour(pen.color()));
    const double width = pen.widthF();
    style += width > 0.0 ? attribute("stroke-width", lengthText(width))
                         : attribute("stroke-width", "1") + attribute("vector-effect", "non-scaling-stroke");
    style += opacityAttribute("stroke-opacity", pen.color().alphaF() * opacity);
    if (pen.capStyle() != Qt::RoundCap) {
        style += attribute("stroke-linecap", pen.capStyle() == Qt::FlatCap ? "butt" : "square");
    }
    if (pen.joinStyle() == Qt::BevelJoin) {
        style += attribute("stroke-linejoin", "bevel");
    } else if (pen.joinStyle() != Qt::RoundJoin) {
        // The painter's limit is half of the one here: the reach from the line, not the length across it.
        style += attribute("stroke-linejoin", "miter") +
                 attribute("stroke-miterlimit", lengthText(std::max(1.0, 2.0 * pen.miterLimit())));
    }
    const QVector<qreal> dashes = pen.dashPattern();
    if (pen.style() != Qt::SolidLine && !dashes.isEmpty()) {
        const double dashUnit = std::max(width, 1.0);
        QByteArray lengths;
        for (const double dash : dashes) {
            lengths += (lengths.isEmpty() ? "" : " ") + lengthText(dash * dashUnit);
        }
        style += attribute("stroke-dasharray", lengths);
        if (pen.dashOffset() != 0.0) {
            style += attribute("stroke-dashoffset", lengthText(pen.dashOffset() * dashUnit));
        }
    }
    return style;
}

void SvgSink::stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) {
    if (pen != m_pen || blend.opacity != m_penOpacity) {
        m_pen = pen;
        m_penOpacity = blend.opacity;
        m_penStyle = penStyle(pen, blend.opacity);
    }
    beginElement("path", m_penStyle, blend);
    m_stream << " d=\"";
    // Round ends look as a join does, and some viewers leave a hole in a closed curve that is smaller than the pen.
    m_stream.addPathData(shape,
                         pen.capStyle() == Qt::RoundCap ? SvgStream::CurveEnds::open : SvgStream::CurveEnds::closed);
    m_stream << "\"/>\n";
}

void SvgSink::drawImage(const PagePicture& picture, const PageBlend& blend) {
    closeGroups(); // the image stands outside of them
    const QByteArray image = m_paints.imageOf(picture.image);
    QByteArray style = opacityAttribute("opacity", blend.opacity);
    if (!picture.smooth) {
        style += attribute("image-rendering", "optimizeSpeed");
    }
    beginElement("use", style.isEmpty() ? attribute("opacity", "1") : style, blend);
    m_stream << " xlink:href=\"" << image << "\" transform=\"";
    m_stream.addMatrix(picture.place);
    m_stream << "\"/>\n";
}

bool SvgSink::drawText(const PageText& text, const PageBlend& blend) {
    const QFont font = text.item.font();
    const QTransform place = QTransform::fromTranslate(text.at.x(), text.at.y()) * text.place;
    const double scale = std::hypot(place.m21(), place.m22());
    const double size = (font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF()) * scale;
    if (!(size > 0.0) || !std::isfinite(size) || !std::isfinite(place.determinant())) {
        return false;
    }
    QByteArray style = attribute("fill", svgColour(text.ink)) +
                       opacityAttribute("fill-opacity", text.ink.alphaF() * blend.opacity) +
                       attribute("font-size", lengthText(size));
    if (font.weight() > QFont::Medium) {
        style += attribute("font-weight", "bold");
    }
    if (font.italic()) {
        style += attribute("font-style", "italic");
    }
    beginElement("text", style, blend);
    const QTransform upright(place.m11() / scale, place.m12() / scale, place.m21() / scale, place.m22() / scale,
                             place.dx(), place.dy());
    m_stream << " font-family=\"" << font.family() << R"(" xml:space="preserve" transform=")";
    m_stream.addMatrix(upright);
    m_stream << "\">" << text.item.text() << "</text>\n";
    return true;
}

} // namespace kelplot
