// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfSink.h"

#include <algorithm>
#include <utility>

#include "device/pdf/PdfPath.h"
#include "device/pdf/PdfUnits.h"

namespace kelplot {
namespace {

/// The operators of a page go to the file in parts of this size.
constexpr size_t partBytes = size_t{1} << 18;

QRectF boxOf(const PageShape& shape) {
    QRectF box;
    for (const PageShape::Element& element : shape.elements) {
        const QPointF point(element.x, element.y);
        if (&element == &shape.elements.front()) {
            box = QRectF(point, point);
        }
        box.setCoords(std::min(box.left(), point.x()), std::min(box.top(), point.y()), std::max(box.right(), point.x()),
                      std::max(box.bottom(), point.y()));
    }
    return box;
}

const char* fillOperator(const PageShape& shape) {
    return shape.rule == Qt::OddEvenFill ? "f*\n" : "f\n";
}

} // namespace

PdfSink::PdfSink(PdfDocument& document, double pointsPerUnit)
    : m_document(document), m_pointsPerUnit(pointsPerUnit), m_forms(document), m_content(m_forms),
      m_images(document.file(), document.resources()), m_brushes(document.file(), document.resources(), m_images) {
}

QPaintEngine::PaintEngineFeatures PdfSink::features() const {
    return QPaintEngine::PaintEngineFeatures(QPaintEngine::LinearGradientFill) | QPaintEngine::RadialGradientFill |
           QPaintEngine::PatternBrush | QPaintEngine::PatternTransform | QPaintEngine::MaskedBrush |
           QPaintEngine::BlendModes;
}

void PdfSink::setBlend(const QColor& ink, const PageBlend& blend) {
    m_content.setBlend(m_document.resources().blend(blend.opacity * ink.alphaF(), blend.mode));
}

void PdfSink::fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) {
    if (brush.brush.style() == Qt::SolidPattern) {
        const QColor& ink = brush.brush.color();
        m_content.ready();
        m_content.setFill(ink.rgb());
        setBlend(ink, blend);
        m_content.fill(shape);
    } else if (brush.brush.gradient() != nullptr) {
        fillGradient(shape, brush, blend);
    } else {
        fillTile(shape, brush, blend);
    }
    passOn(partBytes);
}

void PdfSink::fillGradient(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) {
    const QGradient& gradient = *brush.brush.gradient();
    bool isMapped = false;
    const QRectF area = brush.place.inverted(&isMapped).mapRect(boxOf(shape));
    if (!isMapped) {
        return;
    }
    const std::string shading = m_brushes.shading(gradient, area);
    const std::string mask = m_brushes.softMask(gradient, area);
    PdfBytes& bytes = m_content.drawing();
    setBlend(Qt::black, blend);
    bytes << "q\n";
    PdfPath(bytes, shape, PathUse::area).clip();
    m_content.concatenate(brush.place);
    if (!mask.empty()) {
        bytes << '/' << mask << " gs\n";
    }
    bytes << '/' << shading << " sh\nQ\n";
}

void PdfSink::fillTile(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) {
    const std::string tile = m_brushes.tile(brush.brush, brush.place * m_base);
    PdfBytes& bytes = m_content.drawing();
    setBlend(brush.brush.style() == Qt::TexturePattern ? QColor(Qt::black) : brush.brush.color(), blend);
    bytes << "q/Pattern cs/" << tile << " scn\n";
    PdfPath(bytes, shape, PathUse::area).write();
    bytes << fillOperator(shape) << "Q\n";
}

void PdfSink::stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) {
    m_content.setPen(pen);
    setBlend(pen.color(), blend);
    m_content.stroke(shape);
    passOn(partBytes);
}

void PdfSink::drawImage(const PagePicture& picture, const PageBlend& blend) {
    const std::string name = m_images.nameOf(picture.image, picture.smooth);
    PdfBytes& bytes = m_content.drawing();
    setBlend(Qt::black, blend);
    bytes << "q\n";
    // An image lies in a square of one unit, its lowest row first.
    m_content.concatenate(
        QTransform(picture.image.width(), 0.0, 0.0, -picture.image.height(), 0.0, picture.image.height()) *
        picture.place);
    bytes << '/' << name << " Do\nQ\n";
    passOn(partBytes);
}

void PdfSink::drawText(const QString& text, const QFont& font, const QTransform& place, const QColor& ink,
                       const PageBlend& blend) {
    const PreparedText& prepared = m_texts.prepare(text, font);
    m_content.setFill(ink.rgb());
    setBlend(ink, blend);
    const double em = font.pixelSize();
    const QTransform letters = QTransform::fromScale(em, -em) * place;
    m_content.show(text, prepared, letters);
    if (!prepared.outlines.isEmpty()) {
        fillOutlines(prepared.outlines, place, ink, blend);
    }
    passOn(partBytes);
}

void PdfSink::fillOutlines(const QPainterPath& outlines, const QTransform& place, const QColor& ink,
                           const PageBlend& blend) {
    m_outlines.clear();
    m_outlines.rule = outlines.fillRule();
    for (int i = 0; i < outlines.elementCount(); ++i) {
        const QPainterPath::Element element = outlines.elementAt(i);
        const QPointF point = place.map(QPointF(element.x, element.y));
        m_outlines.add(point.x(), point.y(), element.type);
    }
    if (m_outlines.isFinite()) {
        fill(m_outlines, {ink, {}}, blend);
    }
}

void PdfSink::setLayer(const QString& name) {
    m_content.setLayer(name.isEmpty() ? std::string() : m_document.layer(name));
}

void PdfSink::beginPage(const SheetSize& sheet, const QString& name) {
    endPage();
    m_document.beginPage(sheet, name);
    m_base = QTransform(m_pointsPerUnit, 0.0, 0.0, -m_pointsPerUnit, 0.0, sheet.height * pointsPerMillimetre);
    m_content.beginPage(m_base);
    m_hasPage = true;
}

void PdfSink::endPage() {
    if (m_hasPage) {
        m_content.endPage();
        passOn(0);
    }
}

void PdfSink::finish() {
    endPage();
    m_document.finish(m_texts.writeFonts(m_document.file()));
}

/// Hands the operators on when there are enough of them.
void PdfSink::passOn(size_t most) {
    if (m_content.areWhole() && m_content.bytes().size() > most) {
        PdfBytes next;
        next.reserve(partBytes + partBytes / 4);
        m_document.addContent(std::exchange(m_content.bytes(), std::move(next)));
    }
}

} // namespace kelplot
