// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QVector>
#include <Qt>

#include "keldriver/Export.h"
#include "keldriver/Renderer.h"

class QPainter;

/// Draws a plot on a `QPainter` that the driver owns and lends.
///
/// The renderer keeps its own copy of the ink, the pen's values, the fill style and the scale. `SetColor` and
/// `SetAlpha` rebuild the painter's whole pen and whole brush from that copy, the setters of lines the pen,
/// `SetFillStyle` the brush. The composition mode and the clip live in the painter alone.
///
/// Without a painter, these setters and `setScale` record their value and nothing more; attaching a painter does not
/// install what is recorded, the next setter does. `SetFillMode`, `SetMergeControlType`, `SetClipRgn` and all
/// primitives do nothing at all then.
///
/// `AttachDriver` and each `StartRender` save the painter's state once; `DetachDriver` and the destructor
/// restore it once each. The painter is never deleted here and must outlive the renderer.
class KELDRIVER_API QTRenderer : public HT_Renderer {
public:
    /// Without a painter; see the fields for the style it starts with.
    QTRenderer();
    ~QTRenderer() override;

    /// Always 31: the five lowest bits.
    uint32_t Features() const override;

    /// Takes a painter to draw on and saves its state.
    ///
    /// @param target  a `QPainter*`; borrowed until the renderer is destroyed. Null makes the renderer
    ///                forget the painter it had, without a restore.
    /// @param size    not read
    /// @param flag    not read
    void AttachDriver(void* target, const HT_Int_Size& size, bool flag) override;
    /// Restores the painter's newest saved state but keeps the painter, which can still be drawn on: the destructor
    /// restores it a second time.
    void DetachDriver() override;
    /// Saves the painter's state and installs a solid pen of Qt's usual width and a solid brush, both opaque black.
    /// Each lasts until a setter rebuilds it; the recorded style stays as it is. False without a painter. From here on,
    /// texts that come again are not shaped again; a few megabytes hold their outlines until `FinishRender`,
    /// `DetachDriver` or the renderer's end.
    bool StartRender() override;
    /// Does nothing to the painter; what `StartRender` saved stays on its stack.
    void FinishRender() override;

    /// Draws one point on the device grid with the painter's pen. An opaque point whose plot coordinates round to the
    /// same whole numbers as those of the last opaque point is skipped; `SetColor` forgets the last point.
    void DrawPoint(const HT_Double_Point& point) override;
    /// Draws the full turn through `DrawArc`, so that a subclass's arcs change its ellipses too.
    void DrawEllipse(const HT_Double_Point& center, double radiusX, double radiusY, double rotation) override;
    /// Draws an arc under a world transform of its own, which replaces the painter's for the call: lend a
    /// painter without a world transform and use `setScale`. The painter's window and viewport do apply.
    /// Radii that are both below one plot unit become a point at the centre, drawn through `DrawPoint`.
    ///
    /// Centre and radii are rounded to whole device units, the angles cut off to sixteenths of a degree. An end angle
    /// below the start angle draws clockwise.
    void DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation, double startParam,
                 double endParam) override;
    /// Draws an open polyline on the device grid; points that fall on the same pixel as the one before are
    /// dropped, and a polyline that shrinks to one pixel becomes a line one pixel long, to the right. With a count of
    /// 0 or less the first point is still read and drawn; null points draw nothing.
    void DrawPolyline(const HT_Double_Point* points, int count) override;
    /// Fills a polygon on the device grid by the even-odd rule, without an outline, or gathers it while the
    /// winding fill mode is on. A polygon that shrinks to two pixels is drawn at once as a line, to one as a point
    /// through `DrawPoint`. Null points and a count of 0 or less draw nothing.
    void FillPolygon(const HT_Double_Point* points, int count) override;
    /// Draws a polyline through the points on the device grid; no curve is computed and no point dropped. Null points
    /// and fewer than two draw nothing.
    void DrawBezier(const HT_Double_Point* points, int count) override;
    /// Fills the outlines of one line of text with the ink, never underlined or struck out, under a world transform of
    /// its own, which replaces the painter's for the call. The font's height is rounded to whole pixels of the primary
    /// screen before the scale applies, without regard to its sign; one that rounds to 0 leaves the size to Qt. The
    /// transform's elements are in single precision.
    ///
    /// The width factor stretches the text along its base line; a negative one mirrors it. With `charWidths` the size
    /// becomes the whole number of points, rounded down, at which the first `length` characters are, once stretched,
    /// as wide as the widths say: each width is divided by the factor and rounded. The size stays as it is where it
    /// would be below one point, where the widths do not come to 1 or where the text has no width of its own. The whole
    /// text is drawn whatever `length` says.
    ///
    /// Null text, a width factor of 0, and a place, turn, slant, stretch or scale that is not finite in single
    /// precision draw nothing.
    void DrawText(wchar_t* text, int length, const HT_Font& font, const HT_Double_Point& position, double obliqueAngle,
                  double widthFactor, double* charWidths) override;
    /// Draws an image's memory, read as 32 bits per pixel whatever its depth, into a rectangle on the device grid.
    ///
    /// The size of the image is that of its bitmap header; the rectangle is as high as one row more than the
    /// image has. A negative height factor turns the image upside down and lets it grow upward from `y`. Memory
    /// is wrapped, not copied, unless `SetAlpha` has given an opacity below 255, which multiplies that of each
    /// pixel, the image is turned, or its memory is not aligned to 4 bytes. Images of this library that have fewer
    /// bytes than 32 bits per pixel take are copied and completed with transparent black; other implementations must
    /// have them all. Nothing is drawn without a header, with a width of 0 or less or a height of 0 in it, or without
    /// pixels.
    void DrawImage(HT_RasterImage_Record* record) override;

    /// Rounds the weight to whole device units, saturating. `QPen` itself refuses widths below 0 and from
    /// 32768 on, and then draws with width 1; 0 is its thinnest line.
    void SetLineWeight(double weight) override;
    /// Any value that is neither flat nor square means round.
    void SetLineEndStyle(HT_PlotStyle::LineEndStyle style) override;
    /// Any value that is neither mitred nor bevelled means round.
    void SetLineJoinStyle(HT_PlotStyle::LineJoinStyle style) override;
    /// Sets how lines are dashed; an unknown type means solid. Until it is called, pens are dotted.
    ///
    /// A custom pattern is converted to multiples of the line weight in force now: a driver that changes the
    /// weight calls this again after it. Each length is rounded to a whole number and gaps are shortened by the
    /// weight, below zero too; a zero length counts as one pen width; then the scale multiplies each. With a weight of
    /// 0 lengths stay in device units. A null pattern counts as an empty one, which leaves a custom pen without dashes.
    void SetLineType(HT_PlotStyle::LineType type, double* pattern, unsigned int count) override;
    /// Sets the brush; an unknown style leaves areas without a fill. The two bitmap patterns are opaque, and keep the
    /// colour that was current when a painter first got them.
    void SetFillStyle(HT_PlotStyle::FillStyle style) override;
    /// Sets an opaque ink whatever `SetAlpha` said before; images keep the opacity that it gave them.
    void SetColor(HT_Color ink) override;
    /// Sets the opacity of the ink, until the next `SetColor`, and of images.
    void SetAlpha(unsigned char opacity) override;
    /// `FillModeWinding` starts to gather polygons; `FillModeAlternate` draws the gathered ones as one path,
    /// outlined and filled, and returns to drawing each polygon at once. Polygons that are still gathered when
    /// the renderer is destroyed are never drawn. Other modes are ignored.
    void SetFillMode(HT_PlotStyle::FillMode mode) override;
    /// Sets the painter's composition mode; an unknown type leaves it as it is.
    void SetMergeControlType(HT_PlotStyle::MergeControlType type) override;
    /// Replaces the painter's clip with `region`, borrowed for the call; a clip made before never counts.
    ///
    /// A region of one contour that `KelDriver::IsRect` takes for a rectangle becomes an integer rectangle: its corner
    /// lies one device pixel to the left of and above the rounded corner with the smallest coordinates, and its width
    /// and height are those of the scaled rectangle, rounded up, and 2 more. So it reaches half a pixel to one and a
    /// half beyond the rectangle on the left and at the top, and half a pixel to two and a half on the right and at the
    /// bottom. A smallest coordinate that saturates at the low end of 32 bits wraps to the high end, off the page. A
    /// rectangle wider than 2147483647 device units, which Qt would take for an empty one, is shortened on the left, to
    /// -1 at most, and then on the right; its height is treated alike.
    ///
    /// Other contours are snapped to the device grid and joined, in the order of the list, by Qt's path operations; the
    /// operation of the first one is not read, and an unknown one means `HT_RGN_AND`. With null, or a first contour of
    /// fewer than two vertices, the clip is an empty path; later contours of that kind are skipped. What shows under an
    /// empty path is up to Qt.
    void SetClipRgn(const HT_ClipRgn* region) override;
    /// Stores the factor from plot units to device units; not checked. It applies to coordinates and custom
    /// dash patterns that come after it, not to the line weight.
    void setScale(double factor) override;

protected:
    /// Installs the pen that the recorded style describes; nothing without a painter.
    void CreatePen();
    /// Installs the brush that the recorded style describes; nothing without a painter.
    void CreateBrush();

    QPainter* painter = nullptr; ///< borrowed
    QColor color{0, 0, 0};       ///< current ink with its opacity
    uint8_t alpha = 255;         ///< last value given to `SetAlpha`; `SetColor` leaves it alone
    int32_t minArcSize = 0;      ///< arcs whose radii are both smaller are drawn as points
    bool windingPending = false; ///< polygons are being gathered in `windingPath`
    /// The gathered polygons in device units.
    QPainterPath windingPath;
    int32_t penWidth = 0;                ///< device units
    Qt::PenStyle penStyle = Qt::DotLine; ///< dotted until a line type is chosen: part of the interface
    /// What `SetLineEndStyle` chose.
    Qt::PenCapStyle capStyle = Qt::FlatCap;
    /// What `SetLineJoinStyle` chose.
    Qt::PenJoinStyle joinStyle = Qt::MiterJoin;
    QVector<double> dashPattern; ///< in multiples of the pen width; empty for the standard line types
    /// As it was given, known or not.
    HT_PlotStyle::FillStyle fillStyle = HT_PlotStyle::FillSolid;
    int32_t lastPointX = INT32_MAX; ///< last opaque point, in rounded plot units
    /// Its y.
    int32_t lastPointY = INT32_MAX;
    QImage squaresTexture; ///< built at its first use and kept
    QImage dotsTexture;    ///< built at its first use and kept
    double scale = 1.0;    ///< device units per plot unit
};
