// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/hpgl/HpglWriter.h"

#include <QColor>
#include <QSize>
#include <algorithm>

#include "device/PlotMark.h"

// The commands are those of the HP-GL/2 reference: IN initialise, PS plot size, TR transparency, NP number of pens, PC
// pen colour, WU unit of widths, SP select pen, PW pen width, LA line attributes, PE polyline encoded, PM polygon mode,
// FP fill polygon, IW input window, PG page.

namespace kelplot {
namespace {

constexpr size_t mostPens = 255; // and pen 0, of a power of two

int distance(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

} // namespace

void HpglWriter::beginPage(QSize size, const QByteArray& title) {
    QByteArray name = title;
    name.replace('"', '\'');
    std::replace_if(
        name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    m_pens.clear();
    m_windowSent = QRect(); // as the plotter begins
    m_selected = 0;
    m_width = -1.0;
    m_ends = 0;
    m_joins = 0;
    // The length is that of the paper's way through the plotter, which is x.
    m_text += "IN;CO\"" + QByteArray(plotMark) + "\";CO\"" + name + "\";PS" + QByteArray::number(size.width()) + ',' +
              QByteArray::number(size.height()) + ";TR0;NP256;WU0;\n";
}

void HpglWriter::endPage() {
    m_text += "SP0;PG;\n";
    m_write(m_text);
    m_text.clear();
}

void HpglWriter::setWindow(const QRect& window) {
    m_window = window;
}

void HpglWriter::sendWindow() {
    if (m_window == m_windowSent) {
        return;
    }
    m_windowSent = m_window;
    m_text += "IW";
    if (!m_window.isNull()) {
        m_text += QByteArray::number(m_window.left()) + ',' + QByteArray::number(m_window.top()) + ',' +
                  QByteArray::number(m_window.right()) + ',' + QByteArray::number(m_window.bottom());
    }
    m_text += ';';
}

/// Makes a pen of the colour the one in force. Where there are no more pens it is the nearest.
void HpglWriter::select(QRgb colour) {
    const QRgb opaque = colour | 0xFF000000U;
    auto pen = std::find(m_pens.begin(), m_pens.end(), opaque);
    if (pen == m_pens.end() && m_pens.size() < mostPens) {
        m_pens.push_back(opaque);
        pen = m_pens.end() - 1;
        m_text += "PC" + QByteArray::number(static_cast<int>(m_pens.size())) + ',' + QByteArray::number(qRed(opaque)) +
                  ',' + QByteArray::number(qGreen(opaque)) + ',' + QByteArray::number(qBlue(opaque)) + ';';
    } else if (pen == m_pens.end()) {
        pen = std::min_element(m_pens.begin(), m_pens.end(),
                               [&](QRgb a, QRgb b) { return distance(a, opaque) < distance(b, opaque); });
    }
    const int number = static_cast<int>(pen - m_pens.begin()) + 1;
    if (number != m_selected) {
        m_selected = number;
        m_text += "SP" + QByteArray::number(number) + ';';
    }
}

void HpglWriter::setWidth(double width) {
    if (width != m_width) {
        constexpr double wide = 1000.0; // from there on four digits might be written with an exponent
        m_width = width;
        m_text += "PW" + (width < wide ? QByteArray::number(width, 'g', 4) : QByteArray::number(width, 'f', 0)) + ';';
    }
}

void HpglWriter::setAttributes(const Pen& pen) {
    if (pen.ends != m_ends || pen.joins != m_joins) {
        m_ends = pen.ends;
        m_joins = pen.joins;
        m_text += "LA1," + QByteArray::number(m_ends) + ",2," + QByteArray::number(m_joins) + ';';
    }
}

/// Numbers go out in base 32, the lowest digit first and the last one marked, the sign in the lowest bit.
void HpglWriter::addNumber(int number) {
    constexpr unsigned base = 32;
    constexpr unsigned digit = 63;
    constexpr unsigned lastDigit = 95;
    unsigned rest = number < 0 ? 2U * (0U - static_cast<unsigned>(number)) + 1U : 2U * static_cast<unsigned>(number);
    for (; rest >= base; rest /= base) {
        m_text += static_cast<char>(digit + rest % base);
    }
    m_text += static_cast<char>(lastDigit + rest);
}

/// Goes on to the points from number `first` on, each told by its distance from the one before.
void HpglWriter::addEncoded(const std::vector<QPoint>& points, size_t first) {
    for (size_t i = first; i < points.size(); ++i) {
        addNumber(points[i].x() - points[i - 1].x());
        addNumber(points[i].y() - points[i - 1].y());
    }
}

void HpglWriter::drawPolyline(const std::vector<QPoint>& points, const Pen& pen) {
    sendWindow();
    select(pen.colour);
    setWidth(pen.width);
    setAttributes(pen);
    m_text += "PE7<="; // seven bits a character; to the first point with the pen up, by its place
    addNumber(points[0].x());
    addNumber(points[0].y());
    if (points.size() == 1) {
        addNumber(0);
        addNumber(0);
    }
    addEncoded(points, 1);
    m_text += ";\n";
    flushIfLong();
}

void HpglWriter::fill(const std::vector<PlotterOutline>& outlines, bool evenOdd, QRgb colour) {
    constexpr double finest = 0.05; // millimetres; plotters that fill by lines take the pen's width for them
    sendWindow();
    select(colour);
    setWidth(finest);
    bool isFirst = true;
    for (const PlotterOutline& outline : outlines) {
        const QByteArray start =
            "PU" + QByteArray::number(outline[0].x()) + ',' + QByteArray::number(outline[0].y()) + ';';
        m_text += isFirst ? start + "PM0;" : "PM1;" + start;
        isFirst = false;
        m_text += "PE7";
        addEncoded(outline, 1);
        if (outline.back() != outline.front()) {
            addNumber(outline.front().x() - outline.back().x());
            addNumber(outline.front().y() - outline.back().y());
        }
        m_text += ';';
    }
    if (!isFirst) {
        m_text += evenOdd ? "PM2;FP0;\n" : "PM2;FP1;\n";
    }
    flushIfLong();
}

void HpglWriter::flushIfLong() {
    constexpr int longText = 1 << 16;
    if (m_text.size() > longText) {
        m_write(m_text);
        m_text.clear();
    }
}

} // namespace kelplot
