// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QSet>

#include "device/svg/SvgStream.h"
#include "device/vector/VectorSink.h"

namespace kelplot {

/// Writes what an SVG document refers to: gradients, patterns and images.
class SvgPaints {
public:
    explicit SvgPaints(SvgStream& stream) : m_stream(stream) {}

    /// The value of a fill attribute; writes the gradient or pattern that it refers to.
    QByteArray paintOf(const PageBrush& brush);
    /// The reference to an image, of a unit a pixel. An image is written once, however often it is asked for.
    QByteArray imageOf(const QImage& image);

private:
    QByteArray nextName(const char* kind);
    void writeGradient(const PageBrush& brush, const QByteArray& name);
    void writePattern(const PageBrush& brush, const QByteArray& name);

    SvgStream& m_stream;
    QSet<QByteArray> m_images; ///< that are written, by the names that their content gives them
    int m_names = 0;
};

/// "#rrggbb".
QByteArray svgColour(const QColor& colour);

} // namespace kelplot
