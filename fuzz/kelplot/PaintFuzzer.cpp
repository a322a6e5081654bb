// SPDX-License-Identifier: GPL-2.0-or-later

// Draws with random commands of a painter on a page of each format without pixels, and reads back what comes of it. The
// first byte chooses the format; the rest are commands with their values.

#include <QImage>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <QXmlStreamReader>
#include <string>
#include <vector>

#include "Application.h"
#include "FuzzInput.h"
#include "MemoryFile.h"
#include "Require.h"
#include "WrittenPdf.h"
#include "device/DirectPainter.h"
#include "device/OutputDevice.h"

using namespace kelplot;

namespace {

class Scribbler {
public:
    Scribbler(FuzzInput& input, OutputDevice& device, bool hasPages)
        : m_input(input), m_device(device), m_painter(device.painter()), m_hasPages(hasPages) {}

    /// Returns the number of pages.
    int run() {
        constexpr int mostCommands = 300;
        using Command = void (Scribbler::*)();
        constexpr Command commands[] = {
            &Scribbler::setPen,   &Scribbler::setBrush,  &Scribbler::setTransform, &Scribbler::setClip,
            &Scribbler::setLook,  &Scribbler::saveState, &Scribbler::restoreState, &Scribbler::drawLines,
            &Scribbler::drawPath, &Scribbler::drawShape, &Scribbler::drawPicture,  &Scribbler::drawText,
            &Scribbler::turnPage,
        };
        for (int i = 0; i < mostCommands && !m_input.atEnd(); ++i) {
            (this->*commands[m_input.take<uint8_t>() % std::size(commands)])();
        }
        while (m_saved > 0) {
            restoreState();
        }
        return m_pages;
    }

private:
    bool flag() { return m_input.take<uint8_t>() % 2 != 0; }
    bool isDashed() const { return m_painter.pen().style() > Qt::SolidLine; }
    /// Small where lines have dashes, which Qt lays out one by one, and in clips, of which it makes lists of rows.
    double number() { return m_input.takeCoordinate(isDashed() || m_isClip ? 2 : m_input.take<uint8_t>() % 4U); }
    QPointF point() {
        const double x = number();
        return {x, number()};
    }
    QRectF box() {
        const QPointF corner = point();
        return {corner, point()};
    }
    QColor colour() { return QColor::fromRgba(m_input.take<QRgb>()); }
    std::vector<QPointF> points() {
        std::vector<QPointF> list(m_input.take<uint8_t>() % 12U + 1U);
        for (QPointF& each : list) {
            each = point();
        }
        return list;
    }
    QPainterPath path() {
        QPainterPath made;
        for (int left = m_input.take<uint8_t>() % 8; left >= 0; --left) {
            switch (m_input.take<uint8_t>() % 5U) {
            case 0:
                made.moveTo(point());
                break;
            case 1: {
                const QPointF first = point();
                const QPointF second = point();
                made.cubicTo(first, second, point());
                break;
            }
            case 2:
                made.addRect(box());
                break;
            case 3:
                made.closeSubpath();
                break;
            default:
                made.lineTo(point());
            }
        }
        made.setFillRule(flag() ? Qt::WindingFill : Qt::OddEvenFill);
        return made;
    }
    QImage picture() {
        constexpr QImage::Format formats[] = {QImage::Format_ARGB32,     QImage::Format_RGB32,
                                              QImage::Format_Mono,       QImage::Format_Indexed8,
                                              QImage::Format_Grayscale8, QImage::Format_ARGB32_Premultiplied};
        const QImage::Format format = formats[m_input.take<uint8_t>() % std::size(formats)];
        QImage made(m_input.take<uint8_t>() % 20 + 1, m_input.take<uint8_t>() % 20 + 1, format);
        if (format == QImage::Format_Indexed8) {
            made.setColorTable({m_input.take<QRgb>(), m_input.take<QRgb>()});
        }
        for (int y = 0; y < made.height(); ++y) {
            for (int x = 0; x < made.bytesPerLine(); ++x) {
                const auto byte = m_input.take<uint8_t>();
                made.scanLine(y)[x] = format == QImage::Format_Indexed8 ? static_cast<uint8_t>(byte & 1U) : byte;
            }
        }
        return made;
    }
    QGradient stopped(QGradient gradient) {
        for (int left = m_input.take<uint8_t>() % 5; left > 0; --left) {
            gradient.setColorAt(m_input.take<uint8_t>() / 255.0, colour());
        }
        gradient.setSpread(static_cast<QGradient::Spread>(m_input.take<uint8_t>() % 3));
        return gradient;
    }
    QBrush brush() {
        switch (m_input.take<uint8_t>() % 6U) {
        case 0:
            return Qt::NoBrush;
        case 1: {
            const QPointF from = point();
            return stopped(QLinearGradient(from, point()));
        }
        case 2: {
            const QPointF centre = point();
            const double radius = number();
            return stopped(QRadialGradient(centre, radius, point()));
        }
        case 3:
            return QBrush(picture());
        case 4:
            return {colour(), static_cast<Qt::BrushStyle>(m_input.take<uint8_t>() % (Qt::DiagCrossPattern + 1))};
        default:
            return colour();
        }
    }

    void setPen() {
        const double width = number();
        QPen pen(m_input.take<uint8_t>() % 4 == 0 ? brush() : QBrush(colour()), std::abs(width));
        pen.setStyle(static_cast<Qt::PenStyle>(m_input.take<uint8_t>() % 6));
        pen.setCapStyle(static_cast<Qt::PenCapStyle>(m_input.take<uint8_t>() % 3 * 0x10));
        pen.setJoinStyle(static_cast<Qt::PenJoinStyle>(m_input.take<uint8_t>() % 3 * 0x40));
        if (pen.style() != Qt::SolidLine && m_input.take<uint8_t>() % 4 == 0) {
            pen.setDashPattern({m_input.take<uint8_t>() / 16.0, 0.5 + m_input.take<uint8_t>() / 16.0});
            pen.setDashOffset(m_input.take<int8_t>());
        }
        pen.setCosmetic(m_input.take<uint8_t>() % 4 == 0);
        m_painter.setPen(pen);
        if (isDashed()) {
            m_painter.resetTransform();
        }
    }
    void setBrush() {
        m_painter.setBrush(brush());
        m_painter.setBrushOrigin(point());
    }
    void setTransform() {
        const QPointF right = point();
        const QPointF down = point();
        const QPointF origin = point();
        if (isDashed()) {
            return;
        }
        m_painter.setWorldTransform({right.x(), right.y(), down.x(), down.y(), origin.x(), origin.y()}, flag());
    }
    void setClip() {
        const auto operation = static_cast<Qt::ClipOperation>(m_input.take<uint8_t>() % 3);
        m_isClip = true;
        m_painter.resetTransform();
        if (flag()) {
            m_painter.setClipRect(box(), operation);
        } else {
            m_painter.setClipPath(path(), operation);
        }
        m_isClip = false;
    }
    void setLook() {
        m_painter.setOpacity(m_input.take<uint8_t>() / 255.0);
        m_painter.setCompositionMode(flag() ? QPainter::CompositionMode_Multiply
                                            : QPainter::CompositionMode_SourceOver);
        m_painter.setRenderHint(QPainter::SmoothPixmapTransform, flag());
        m_device.layerChanged(QString(QChar('a' + m_input.take<uint8_t>() % 4)));
    }
    void saveState() {
        m_painter.save();
        ++m_saved;
    }
    void restoreState() {
        if (m_saved > 0) {
            m_painter.restore();
            --m_saved;
        }
    }
    void drawLines() {
        const std::vector<QPointF> list = points();
        const int count = static_cast<int>(list.size());
        switch (m_input.take<uint8_t>() % 3U) {
        case 0:
            m_painter.drawPoints(list.data(), count);
            break;
        case 1:
            m_painter.drawPolygon(list.data(), count);
            break;
        default:
            m_painter.drawPolyline(list.data(), count);
        }
    }
    void drawPath() { m_painter.drawPath(path()); }
    void drawShape() {
        const QRectF shape = box();
        switch (m_input.take<uint8_t>() % 3U) {
        case 0:
            m_painter.drawEllipse(shape);
            break;
        case 1:
            m_painter.fillRect(shape, brush());
            break;
        default:
            m_painter.drawRect(shape);
        }
    }
    void drawPicture() {
        const QImage image = picture();
        const QRectF target = box();
        m_painter.drawImage(target, image, flag() ? QRectF(image.rect()) : box());
    }
    void drawText() {
        QFont font(flag() ? QStringLiteral("DejaVu Sans") : QStringLiteral("osifont"));
        font.setPixelSize(m_input.take<uint8_t>() + 1);
        QString text;
        for (int left = m_input.take<uint8_t>() % 12; left >= 0; --left) {
            text += QChar(m_input.take<uint16_t>());
        }
        if (flag()) {
            m_painter.setFont(font);
            m_painter.drawText(point(), text);
            return;
        }
        const QPointF right = point();
        const QPointF down = point();
        const QPointF at = point();
        DirectPainter(m_painter, &m_device)
            .drawText(text, font, {right.x(), right.y(), down.x(), down.y(), at.x(), at.y()}, colour());
    }
    void turnPage() {
        constexpr int mostPages = 5;
        if (m_hasPages && m_saved == 0 && m_pages < mostPages) {
            m_device.nextPage({m_input.take<uint8_t>() + 5.0, 100.0}, QStringLiteral("next"));
            ++m_pages;
        }
    }

    FuzzInput& m_input;
    OutputDevice& m_device;
    QPainter& m_painter;
    bool m_hasPages;
    bool m_isClip = false;
    int m_saved = 0;
    int m_pages = 1;
};

void requireReadable(OutputFormat format, const std::string& written, int pages) {
    switch (format) {
    case OutputFormat::pdf:
        requireSoundPdf(written, pages);
        break;
    case OutputFormat::svg: {
        QXmlStreamReader reader(QByteArray::fromStdString(written));
        while (!reader.atEnd()) {
            reader.readNext();
        }
        require(!reader.hasError());
        break;
    }
    default:
        for (const char byte : written) {
            require((byte >= ' ' && byte <= '~') || byte == '\x7F' || byte == '\n');
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    needApplication();
    FuzzInput input(data, size);
    constexpr OutputFormat formats[] = {OutputFormat::pdf, OutputFormat::svg, OutputFormat::hpgl};
    const OutputFormat format = formats[input.take<uint8_t>() % std::size(formats)];
    const MemoryFile file;
    OutputSetup setup;
    setup.path = QString::fromStdString(file.path()).replace(QStringLiteral("/proc/self"), QStringLiteral("/dev"));
    setup.title = QStringLiteral("t");
    setup.sheet = {100.0, 80.0};
    const std::unique_ptr<OutputDevice> device = createOutputDevice(format, setup);
    const int pages = Scribbler(input, *device, hasPages(format)).run();
    device->finish();
    requireReadable(format, file.read(), pages);
    return 0;
}
