// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QBrush>
#include <QTransform>
#include <map>
#include <string>

#include "device/pdf/PdfImages.h"
#include "device/pdf/PdfResources.h"

namespace kelplot {

/// The gradients and tiles of a document. Names are those among its resources, without the slash.
class PdfBrushes {
public:
    /// All are borrowed.
    PdfBrushes(PdfFile& file, PdfResources& resources, PdfImages& images)
        : m_file(file), m_resources(resources), m_images(images) {}

    /// The name of the tile of a texture, or of one of Qt's patterns.
    ///
    /// @param place  from the tile's pixels to what the file counts in
    std::string tile(const QBrush& brush, const QTransform& place);

    /// The name of the colours of a linear or radial gradient.
    ///
    /// @param area  that is to be covered, in the gradient's coordinates
    std::string shading(const QGradient& gradient, const QRectF& area);
    /// The name of the graphics state with its opacities; empty where all colours are opaque.
    std::string softMask(const QGradient& gradient, const QRectF& area);

private:
    std::string addTile(const QBrush& brush, const std::string& place);

    PdfFile& m_file;
    PdfResources& m_resources;
    PdfImages& m_images;
    std::map<std::string, std::string> m_tiles; ///< by what tells them apart
};

} // namespace kelplot
