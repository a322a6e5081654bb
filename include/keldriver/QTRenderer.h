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
/// The renderer keeps its own copy of every style value; each style setter rebuilds the painter's whole pen
/// or brush from that copy. Only the composition mode and the clip live in the painter alone. Without a
/// painter, setters record their value, but `SetFillMode` and `SetMergeControlType` do nothing, and neither do
/// primitives.
///
/// `AttachDriver` and each `StartRender` save the painter's state once; `DetachDriver` and the destructor
/// restore it once each. The painter is never deleted here and must outlive the renderer.
class KELDRIVER_API QTRenderer : public HT_Renderer {
public:
    /// Without a painter; see the fields for the style it starts with.
    QTRenderer();
    ~QTRenderer() override;

    /// Always 31: all five capabilities.
    uint32_t Features() const override;

    /// @param target  a `QPainter*`; borrowed until the renderer is destroyed. Null makes the renderer
    ///                forget the painter it had, without a restore.
    /// @param size    not read
    /// @param flag    not read
    void AttachDriver(void* target, const HT_Int_Size& size, bool flag) override;
    /// Restores the painter but keeps it: the destructor restores it a second time.
    void DetachDriver() override;
    /// Saves the painter's state and installs an opaque black solid pen and brush, which last until the next
    /// style setter; the recorded style stays as it is. False without a painter.
    bool StartRender() override;
    /// Does nothing; what `StartRender` saved stays on the painter's stack.
    void FinishRender() override;

    /// Draws one device point. An opaque point that rounds to the plot coordinates of the last opaque point drawn
    /// is skipped; `SetColor` makes the next point count as new.
    void DrawPoint(const HT_Double_Point& point) override;
    /// Draws the full turn through `DrawArc`, so that a subclass's arcs change its ellipses too.
    void DrawEllipse(const HT_Double_Point& center, double radiusX, double radiusY, double rotation) override;
    /// Draws an arc under a world transform of its own, which replaces the painter's for the call: lend a
    /// painter without a world transform and use `setScale`. The painter's window and viewport do apply.
    /// Radii that are both below one plot unit become a point at the centre, drawn through `DrawPoint`.
    void DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation, double startParam,
                 double endParam) override;
    /// Draws an open polyline on the device grid; points that fall on the same pixel as the one before are
    /// dropped, and a polyline that shrinks to one pixel becomes a line one pixel long. With a count of 0 or
    /// less the first point is drawn all the same; null points draw nothing.
    void DrawPolyline(const HT_Double_Point* points, int count) override;
    /// Fills a polygon on the device grid by the even-odd rule, without an outline, or gathers it while the
    /// winding fill mode is on. A polygon that shrinks to two pixels is drawn as a line, to one as a point.
    void FillPolygon(const HT_Double_Point* points, int count) override;
    /// Draws a polyline through the points on the device grid; no curve is computed.
    void DrawBezier(const HT_Double_Point* points, int count) override;
    /// Fills the outlines of one line of text, never underlined or struck out, under a world transform of its own,
    /// which replaces the painter's for the call. The height counts in pixels of the primary screen before the scale
    /// applies; the transform's elements are in single precision.
    ///
    /// With `charWidths` the size becomes the whole number of points, rounded down, at which the first `length`
    /// characters are as wide as the widths say; it stays as it is where that is below one point. The whole text is
    /// drawn whatever `length` says. Null text, a width factor of 0 and positions that are not finite draw nothing.
    void DrawText(wchar_t* text, int length, const HT_Font& font, const HT_Double_Point& position, double obliqueAngle,
                  double widthFactor, double* charWidths) override;
    /// Draws an image's memory, read as 32 bits a pixel whatever its depth, into a rectangle on the device grid.
    ///
    /// The size of the image is that of its bitmap header; the rectangle is as high as one row more than the
    /// image has. A negative height factor turns the image upside down and lets it grow upward from `y`. Memory
    /// is wrapped, not copied, unless `SetAlpha` has given an opacity below 255, which multiplies that of each
    /// pixel, or the image is turned. Images of this library that have fewer bytes than 32 bits a pixel take are
    /// completed with transparent black; other implementations must have them all. Nothing is drawn without a
    /// header, with a width of 0 or less or a height of 0 in it, or without pixels.
    void DrawImage(HT_RasterImage_Record* record) override;

    /// Rounds the weight to whole device units, saturating. `QPen` itself refuses widths below 0 and from
    /// 32768 on, and then draws with width 1.
    void SetLineWeight(double weight) override;
    void SetLineEndStyle(HT_PlotStyle::LineEndStyle style) override;
    void SetLineJoinStyle(HT_PlotStyle::LineJoinStyle style) override;
    /// Sets how lines are dashed; an unknown type means solid.
    ///
    /// A custom pattern is converted to multiples of the line weight in force now: a driver that changes the
    /// weight calls this again after it. Each length is rounded to whole device units before the scale
    /// applies; gaps are shortened by the weight; a zero length becomes one pen width. A null pattern counts
    /// as an empty one.
    void SetLineType(HT_PlotStyle::LineType type, double* pattern, unsigned int count) override;
    /// Sets the brush; an unknown style leaves areas without a fill. The two bitmap patterns keep the colour
    /// that was current when they were first used.
    void SetFillStyle(HT_PlotStyle::FillStyle style) override;
    void SetColor(HT_Color ink) override;
    void SetAlpha(unsigned char opacity) override;
    /// `FillModeWinding` starts to gather polygons; `FillModeAlternate` draws the gathered ones as one path,
    /// outlined and filled, and returns to drawing each polygon at once. Polygons that are still gathered when
    /// the renderer is destroyed are never drawn. Other modes are ignored.
    void SetFillMode(HT_PlotStyle::FillMode mode) override;
    /// Sets the painter's composition mode; an unknown type leaves it as it is.
    void SetMergeControlType(HT_PlotStyle::MergeControlType type) override;
    /// Replaces the painter's clip with `region`, borrowed for the call; a clip made before never counts.
    ///
    /// One axis-parallel rectangle becomes an integer rectangle that is one device pixel larger on the left and
    /// at the top, and one to two larger on the right and at the bottom. Other contours are snapped to the device
    /// grid and joined as paths; an unknown operation means `HT_RGN_AND`. With null, or a first contour of fewer
    /// than two vertices, the clip is an empty path; later contours of that kind are skipped.
    void SetClipRgn(const HT_ClipRgn* region) override;
    /// Stores the factor from plot units to device units; not checked. It applies to coordinates and custom
    /// dash patterns, not to the line weight.
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
    QPainterPath windingPath;
    int32_t penWidth = 0;                ///< device units
    Qt::PenStyle penStyle = Qt::DotLine; ///< dotted until the driver chooses a line type: drivers rely on it
    Qt::PenCapStyle capStyle = Qt::FlatCap;
    Qt::PenJoinStyle joinStyle = Qt::MiterJoin;
    QVector<double> dashPattern; ///< in multiples of the pen width; empty for the standard line types
    HT_PlotStyle::FillStyle fillStyle = HT_PlotStyle::FillSolid;
    int32_t lastPointX = INT32_MAX; ///< last opaque point, in rounded plot units
    int32_t lastPointY = INT32_MAX;
    QImage squaresTexture; ///< built at its first use and kept
    QImage dotsTexture;    ///< built at its first use and kept
    double scale = 1.0;    ///< device units per plot unit
};
