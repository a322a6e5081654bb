// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QBrush>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QTransform>
#include <vector>

#include "device/vector/PageShape.h"

namespace kelplot {

/// How something is laid over what is on the page already.
struct PageBlend {
    double opacity = 1.0; ///< besides that of colours
    QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver;

    bool operator==(const PageBlend& other) const { return opacity == other.opacity && mode == other.mode; }
    bool operator!=(const PageBlend& other) const { return !(*this == other); }
};

/// What fills an area. Gradients and textures lie in their own coordinates, which `place` takes to page units.
struct PageBrush {
    QBrush brush;
    QTransform place;
};

/// Pixels on the page. `place` takes pixel coordinates, from 0 to the image's width and height, to page units.
struct PagePicture {
    const QImage& image;
    const QTransform& place;
    bool smooth; ///< pixels are averaged or blended rather than repeated
};

/// A text of one font as the painter draws it.
struct PageText {
    const QTextItem& item;
    QPointF at;              ///< the start of the base line, in the painter's coordinates
    const QTransform& place; ///< from the painter's coordinates to page units
    QColor ink;
};

/// A vector format, to which a `VectorEngine` writes. All coordinates are page units, y downwards.
class VectorSink {
public:
    virtual ~VectorSink() = default;
    VectorSink(const VectorSink&) = delete;
    VectorSink& operator=(const VectorSink&) = delete;

    /// What the format can do besides filling and stroking paths with plain colours of any opacity, and drawing images.
    /// The painter makes shift without the rest.
    virtual QPaintEngine::PaintEngineFeatures features() const = 0;

    /// Everything from here on shows only within each of these shapes, if there are any.
    virtual void setClips(const std::vector<PageShape>& clips) = 0;

    /// @param brush  has a style other than `Qt::NoBrush`
    virtual void fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) = 0;

    /// @param pen  in page units: its width, and its dashes as multiples of that; its brush is a plain colour. A width
    ///             of 0 means the thinnest line there is.
    virtual void stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) = 0;

    virtual void drawImage(const PagePicture& picture, const PageBlend& blend) = 0;

    /// Draws a text as characters; false: as outlines, please.
    virtual bool drawText(const PageText& text, const PageBlend& blend) {
        static_cast<void>(text);
        static_cast<void>(blend);
        return false;
    }

protected:
    VectorSink() = default;
};

} // namespace kelplot
