// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "device/pdf/PdfBytes.h"
#include "device/vector/PageShape.h"

namespace kelplot {

/// How a shape is painted.
enum class PathUse { area, solidLine, dashedLine };

/// Writes shapes in few digits. Shapes of several points are written from their own origin: numbers are shorter then,
/// and shapes that repeat elsewhere on the page compress to almost nothing.
class PdfPath {
public:
    /// @param base  a point of whole page units where the coordinates begin that are in force
    PdfPath(PdfBytes& bytes, const PageShape& shape, PathUse use, QPointF base = {})
        : m_bytes(bytes), m_shape(shape), m_use(use), m_place(base), m_origin(base) {}

    /// Writes the shape and the operator that paints it.
    void paint(std::string_view operation);
    /// Writes the shape where it lies.
    void write();
    /// Writes the shape where it lies, and has it cut what follows.
    void clip();

private:
    bool writeRectangle();
    void moveOrigin(const PageShape::Element& point);
    bool writeSubpaths(size_t from, size_t end);
    void writeSubpath(size_t from, size_t to);
    void put(const PageShape::Element& element);
    int decimalsNeeded() const;

    PdfBytes& m_bytes;
    const PageShape& m_shape;
    PathUse m_use;
    int m_decimals = 1;
    int m_originDecimals = 0;
    QPointF m_place;  ///< where the coordinates begin that are in force
    QPointF m_origin; ///< from which coordinates are counted; as near to that as they are exact
};

} // namespace kelplot
