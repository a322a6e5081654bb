// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfPath.h"

#include <QRectF>
#include <cmath>

#include "device/vector/ShapeParts.h"

namespace kelplot {
namespace {

/// From so many points on the map to the own origin pays.
constexpr size_t fewestMapped = 4;

} // namespace

void PdfPath::paint(std::string_view operation) {
    m_decimals = decimalsNeeded();
    if (writeRectangle()) {
        m_bytes << operation;
        return;
    }
    const size_t count = m_shape.elements.size();
    if (count < fewestMapped) {
        m_bytes << (writeSubpaths(0, count) ? operation : "");
        return;
    }
    std::vector<size_t> parts = m_use == PathUse::area ? partsOfArea(m_shape) : std::vector<size_t>{0};
    m_originDecimals = parts.size() > 1 ? m_decimals : 0;
    parts.push_back(count);
    m_bytes << "q ";
    for (size_t i = 0; i + 1 < parts.size(); ++i) {
        moveOrigin(m_shape.elements[parts[i]]);
        m_bytes << (writeSubpaths(parts[i], parts[i + 1]) ? operation : "");
    }
    m_bytes << "Q\n";
}

/// Has coordinates counted from a point, so that equal shapes get equal ones wherever they lie.
void PdfPath::moveOrigin(const PageShape::Element& point) {
    const double steps = m_originDecimals == 0 ? 1.0 : 10.0;
    const QPointF place(std::round(point.x * steps) / steps, std::round(point.y * steps) / steps);
    m_bytes << "1 0 0 1 ";
    m_bytes.decimal(place.x() - m_place.x(), m_originDecimals).decimal(place.y() - m_place.y(), m_originDecimals)
        << "cm\n";
    m_place = place;
    m_origin = m_originDecimals == 0 ? place : QPointF(point.x, point.y);
}

void PdfPath::write() {
    if (!writeRectangle() && !writeSubpaths(0, m_shape.elements.size())) {
        m_bytes << "0 0 0 0 re\n"; // an empty path would not count
    }
}

void PdfPath::clip() {
    write();
    m_bytes << (m_shape.rule == Qt::OddEvenFill ? "W* n\n" : "W n\n");
}

/// Curves that are large against the page's grid need no finer coordinates than that; lines lie on it anyway.
int PdfPath::decimalsNeeded() const {
    constexpr double largeStep = 10.0;
    double steps = 0.0;
    for (size_t i = 1; i < m_shape.elements.size(); ++i) {
        steps += std::abs(m_shape.elements[i].x - m_shape.elements[i - 1].x) +
                 std::abs(m_shape.elements[i].y - m_shape.elements[i - 1].y);
    }
    return steps > largeStep * static_cast<double>(m_shape.elements.size()) ? 0 : 1;
}

/// The sides of a rectangle may be drawn in any order unless they are dashed, and all four only if all are there.
bool PdfPath::writeRectangle() {
    const bool mayBe =
        m_use == PathUse::area || (m_use == PathUse::solidLine && m_shape.isClosed(0, m_shape.elements.size()));
    QRectF box;
    if (!mayBe || !m_shape.isRectangle(box)) {
        return false;
    }
    m_bytes.coordinate(box.x() - m_origin.x())
            .coordinate(box.y() - m_origin.y())
            .coordinate(box.width())
            .coordinate(box.height())
        << "re\n";
    return true;
}

bool PdfPath::writeSubpaths(size_t from, size_t end) {
    bool isAny = false;
    while (from < end) {
        const size_t to = m_shape.endOfSubpath(from);
        if (to - from > 1) {
            writeSubpath(from, to);
            isAny = true;
        }
        from = to;
    }
    return isAny;
}

void PdfPath::put(const PageShape::Element& element) {
    m_bytes.decimal(element.x - m_origin.x(), m_decimals).decimal(element.y - m_origin.y(), m_decimals);
}

void PdfPath::writeSubpath(size_t from, size_t to) {
    const PageShape::Element* const elements = m_shape.elements.data();
    const bool isClosed = m_shape.isClosed(from, to);
    const bool endsStraight = elements[to - 1].type == QPainterPath::LineToElement;
    const size_t end = isClosed && endsStraight ? to - 1 : to; // the last side comes with the closing
    put(elements[from]);
    m_bytes << "m\n";
    for (size_t i = from + 1; i < end; ++i) {
        put(elements[i]);
        if (elements[i].type == QPainterPath::LineToElement) {
            m_bytes << "l\n";
        } else if (elements[i].type == QPainterPath::CurveToDataElement &&
                   elements[i - 1].type == QPainterPath::CurveToDataElement) {
            m_bytes << "c\n";
        }
    }
    if (isClosed && m_use != PathUse::area) {
        m_bytes << "h\n";
    }
}

} // namespace kelplot
