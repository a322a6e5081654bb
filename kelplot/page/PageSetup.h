// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geometry/Affine2.h"
#include "geometry/Box2.h"
#include "page/DeviceGrid.h"
#include "page/PlotTarget.h"
#include "page/SheetSize.h"

namespace kelplot {

enum class Orientation { automatic, portrait, landscape };

/// A point of a drawing and where on the sheet it is to lie.
struct PageAnchor {
    Vec2 drawing;
    Vec2 fromCorner; ///< millimetres to the right of and above the lower left corner of what the margins leave
};

/// What the caller asked of the page.
struct PageOptions {
    Paper paper{{210.0, 297.0}, false};
    Margins margins;
    Orientation orientation = Orientation::automatic;
    std::optional<double> scale;      ///< paper millimetres a drawing millimetre; none: as large as the page allows
    bool centred = false;             ///< with a scale: in the middle, not at the lower left
    std::optional<PageAnchor> anchor; ///< with a scale: in place of the lower left
    std::optional<Box2> window;       ///< drawing units; the part to plot, which is laid out in place of the extents
};

/// Where a drawing lies on its sheet.
struct PageLayout {
    SheetSize sheet;           ///< as the sheet lies before the drawing
    Affine2 toSheet;           ///< from drawing units to millimetres from the sheet's upper left corner, y downwards
    double scale = 1.0;        ///< paper millimetres a drawing millimetre
    double fittingScale = 1.0; ///< the largest at which the drawing fits
    bool drawingFits = true;   ///< false: the scaled drawing is larger than the margins leave
    /// Millimetres from the sheet's upper left corner; only what lies in all of them shows. A drawing
    /// that fits may use the margins: its outermost lines reach half their width beyond its extents.
    std::vector<Box2> limits;
};

/// Reads "1:50", "2:1" or "0.5": a finite scale above zero.
std::optional<double> scaleFromText(const std::string& text);

/// Reads one length for all edges or "LEFT,TOP,RIGHT,BOTTOM"; none is negative.
std::optional<Margins> marginsFromText(const std::string& text);

/// Reads "X1,Y1,X2,Y2", two opposite corners of an area in drawing units, in any order.
std::optional<Box2> windowFromText(const std::string& text);

/// Tells whether `margins` leave room for a plot, in one position of the sheet at least that the options allow.
bool leavesRoom(const PageOptions& options);

/// Lays a drawing with these extents out on the sheet, or its window where the options name one. Extents without width
/// or height, or none at all, are laid out too: what cannot be scaled to fit keeps its true size.
PageLayout layOutPage(const Box2& extents, double millimetresPerUnit, const PageOptions& options);

/// The target for a plot laid out so on a device with this grid.
PlotTarget plotTargetFor(const PageLayout& layout, const DeviceGrid& grid);

} // namespace kelplot
