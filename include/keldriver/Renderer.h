// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

#include "keldriver/Export.h"
#include "keldriver/PlotStyle.h"
#include "keldriver/Types.h"

struct HT_ClipRgn;
struct HT_RasterImage_Record;

/// The font of a `DrawText` call.
struct HT_Font {
    double height;          ///< character height in plot units
    double rotation;        ///< of the base line, degrees, counter-clockwise on the page
    uint8_t bold;           ///< non-zero: weight 700, zero: weight 400
    uint8_t italic;         ///< non-zero: italic
    uint8_t charSet;        ///< Win32 character set
    uint8_t pitchAndFamily; ///< Win32 pitch and family
    wchar_t faceName[32];   ///< zero-terminated; may fill all 32 characters without a terminator
};

static_assert(offsetof(HT_Font, rotation) == 8 && offsetof(HT_Font, bold) == 16 &&
                  offsetof(HT_Font, pitchAndFamily) == 19 && offsetof(HT_Font, faceName) == 20 &&
                  sizeof(HT_Font) == 152,
              "record shared with drivers");

/// What a printer or plotter driver draws a plot with.
///
/// A driver gets one from `HT_RendererFactory`, lends it a target with `AttachDriver`, calls
/// `StartRender`, sends style setters and primitives in any order, then calls `FinishRender` and
/// `DetachDriver` and gives the renderer back to the factory. Coordinates are plot units, multiplied by
/// the scale to give device units; y grows downwards on the page. Points, texts and records are borrowed for the
/// call. What is set holds for all that is drawn after it. No operation reports an error. One thread uses a
/// renderer at a time.
class KELDRIVER_API HT_Renderer {
public:
    /// For implementations.
    HT_Renderer() = default;
    /// Called by `HT_RendererFactory::DestroyRenderer`.
    virtual ~HT_Renderer() = default;
    HT_Renderer(const HT_Renderer&) = delete;
    HT_Renderer& operator=(const HT_Renderer&) = delete;

    /// What the renderer can do, as bits whose meaning is agreed between renderers and drivers.
    virtual uint32_t Features() const = 0;

    /// Lends the renderer what it draws on.
    ///
    /// @param target  its type depends on the renderer; what it points to must outlive the renderer
    /// @param size    of the target in device units
    /// @param flag    its meaning depends on the renderer
    virtual void AttachDriver(void* target, const HT_Int_Size& size, bool flag) = 0;
    /// Ends what `AttachDriver` began. Nothing is drawn after it, but the target may still be needed until the
    /// renderer is destroyed.
    virtual void DetachDriver() = 0;
    /// Makes the target ready to draw on.
    ///
    /// @return true when the renderer is ready; false when no target is attached
    virtual bool StartRender() = 0;
    /// Ends what `StartRender` began.
    virtual void FinishRender() = 0;

    /// One point, in the current ink.
    virtual void DrawPoint(const HT_Double_Point& point) = 0;
    /// The outline of an ellipse with semi-axes `radiusX` and `radiusY` in plot units, turned by `rotation` radians
    /// counter-clockwise on the page.
    virtual void DrawEllipse(const HT_Double_Point& center, double radiusX, double radiusY, double rotation) = 0;
    /// The part of such an outline between two eccentric angles in radians, counter-clockwise on the page.
    virtual void DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation,
                         double startParam, double endParam) = 0;
    /// An open polyline of `count` points, at least one, with the line weight, ends, joins and line type.
    virtual void DrawPolyline(const HT_Double_Point* points, int count) = 0;
    /// A filled polygon of `count` points, without an outline. The last point is joined to the first one.
    virtual void FillPolygon(const HT_Double_Point* points, int count) = 0;
    /// A curve that the caller has flattened to `count` points already.
    virtual void DrawBezier(const HT_Double_Point* points, int count) = 0;
    /// One line of zero-terminated text.
    ///
    /// @param text          not written to
    /// @param length        number of characters that `charWidths` describes
    /// @param font          size, turn and face
    /// @param position      start of the base line
    /// @param obliqueAngle  radians
    /// @param widthFactor   horizontal stretch
    /// @param charWidths    advance of each character in plot units, or null for the font's own
    virtual void DrawText(wchar_t* text, int length, const HT_Font& font, const HT_Double_Point& position,
                          double obliqueAngle, double widthFactor, double* charWidths) = 0;
    /// A raster image.
    ///
    /// @param record  the image, its place and its size; record and image stay the driver's
    virtual void DrawImage(HT_RasterImage_Record* record) = 0;

    /// Sets the width of lines in device units; the scale does not multiply it.
    virtual void SetLineWeight(double weight) = 0;
    /// Sets how lines end.
    virtual void SetLineEndStyle(HT_PlotStyle::LineEndStyle style) = 0;
    /// Sets how the segments of a line meet.
    virtual void SetLineJoinStyle(HT_PlotStyle::LineJoinStyle style) = 0;
    /// Sets how lines are dashed.
    ///
    /// @param pattern  `count` lengths, which the scale makes device units: a dash, a gap and so on in turn. Read
    ///                 for `LineTypeCustom` only
    virtual void SetLineType(HT_PlotStyle::LineType type, double* pattern, unsigned int count) = 0;
    /// Sets what polygons are filled with.
    virtual void SetFillStyle(HT_PlotStyle::FillStyle style) = 0;
    /// Sets the ink of lines, areas and texts, fully opaque; opacity comes from a `SetAlpha` after it.
    virtual void SetColor(HT_Color color) = 0;
    /// Sets the opacity of the ink and of images, from 0, which shows nothing, to 255.
    virtual void SetAlpha(unsigned char alpha) = 0;
    /// Sets what counts as the inside of a polygon.
    virtual void SetFillMode(HT_PlotStyle::FillMode mode) = 0;
    /// Sets how new ink goes with what is drawn already.
    virtual void SetMergeControlType(HT_PlotStyle::MergeControlType type) = 0;
    /// Limits what is drawn from now on to a region in plot units, which replaces any region set before.
    virtual void SetClipRgn(const HT_ClipRgn* region) = 0;
    /// Sets the factor from plot units to device units. Does nothing here: for renderers that scale.
    virtual void setScale(double scale);

    /// Begins to gather a path. Does nothing here, like the three operations after it: a driver may call them on
    /// every renderer, and one without a path mode inherits them.
    virtual void BeginPath();
    /// Ends the path that `BeginPath` began. Does nothing here.
    virtual void EndPath();
    /// Fills the gathered path. Does nothing here.
    virtual void FillPath();
    /// Tells the renderer that a polyline is being drawn piece by piece, or no longer. Does nothing here.
    virtual void SetDrawingPline(bool drawing);
};

/// Makes and destroys renderers.
class KELDRIVER_API HT_RendererFactory {
public:
    /// Makes a renderer without a target.
    ///
    /// @param kind     4 for the renderer that draws on a `QPainter`, `QTRenderer`; no other kind is known
    /// @param options  not read
    /// @return a renderer to release with `DestroyRenderer`, or null for an unknown kind
    static HT_Renderer* CreateRenderer(int kind, unsigned int options);
    /// Destroys a renderer that `CreateRenderer` made; null is ignored.
    static void DestroyRenderer(HT_Renderer* renderer);
};
