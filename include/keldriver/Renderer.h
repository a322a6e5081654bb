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
/// the scale to give device units; y grows downwards on the page. Point arrays are borrowed for the
/// call. No operation reports an error. One thread uses a renderer at a time.
class KELDRIVER_API HT_Renderer {
public:
    HT_Renderer() = default;
    virtual ~HT_Renderer() = default;
    HT_Renderer(const HT_Renderer&) = delete;
    HT_Renderer& operator=(const HT_Renderer&) = delete;

    /// The capability bits agreed with the drivers.
    virtual uint32_t Features() const = 0;

    /// Borrows `target` until the renderer is destroyed. What it points to is the renderer's matter.
    virtual void AttachDriver(void* target, const HT_Int_Size& size, bool flag) = 0;
    /// Undoes the newest of the states that `AttachDriver` and `StartRender` saved on the target. After one of
    /// each, the target's original state comes back when the renderer is destroyed.
    virtual void DetachDriver() = 0;
    /// Makes the target ready to draw on; false when none is attached.
    virtual bool StartRender() = 0;
    virtual void FinishRender() = 0;

    virtual void DrawPoint(const HT_Double_Point& point) = 0;
    /// A whole ellipse with semi-axes `radiusX` and `radiusY`, turned by `rotation` radians.
    virtual void DrawEllipse(const HT_Double_Point& center, double radiusX, double radiusY, double rotation) = 0;
    /// The part of such an ellipse between two eccentric angles in radians, counter-clockwise on the page.
    virtual void DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation,
                         double startParam, double endParam) = 0;
    /// An open polyline of `count` points, at least one.
    virtual void DrawPolyline(const HT_Double_Point* points, int count) = 0;
    /// A filled polygon without an outline.
    virtual void FillPolygon(const HT_Double_Point* points, int count) = 0;
    /// A curve that the caller has flattened to `count` points already.
    virtual void DrawBezier(const HT_Double_Point* points, int count) = 0;
    /// One line of zero-terminated text.
    ///
    /// @param length        number of characters that `charWidths` describes
    /// @param position      start of the base line
    /// @param obliqueAngle  radians
    /// @param widthFactor   horizontal stretch
    /// @param charWidths    advance of each character in plot units, or null for the font's own
    virtual void DrawText(wchar_t* text, int length, const HT_Font& font, const HT_Double_Point& position,
                          double obliqueAngle, double widthFactor, double* charWidths) = 0;
    virtual void DrawImage(HT_RasterImage_Record* record) = 0;

    /// Line weight in device units; the scale does not multiply it.
    virtual void SetLineWeight(double weight) = 0;
    virtual void SetLineEndStyle(HT_PlotStyle::LineEndStyle style) = 0;
    virtual void SetLineJoinStyle(HT_PlotStyle::LineJoinStyle style) = 0;
    /// @param pattern  `count` dash and gap lengths in turn, read for `LineTypeCustom` only; borrowed
    virtual void SetLineType(HT_PlotStyle::LineType type, double* pattern, unsigned int count) = 0;
    virtual void SetFillStyle(HT_PlotStyle::FillStyle style) = 0;
    /// Sets an opaque ink; opacity comes from a `SetAlpha` after it.
    virtual void SetColor(HT_Color color) = 0;
    virtual void SetAlpha(unsigned char alpha) = 0;
    virtual void SetFillMode(HT_PlotStyle::FillMode mode) = 0;
    virtual void SetMergeControlType(HT_PlotStyle::MergeControlType type) = 0;
    /// Limits what follows to a region; borrowed for the call.
    virtual void SetClipRgn(const HT_ClipRgn* region) = 0;
    /// Sets the factor from plot units to device units.
    virtual void setScale(double scale);

    // A renderer without a path mode inherits these as silent no-ops, so that drivers may always call them.
    virtual void BeginPath();
    virtual void EndPath();
    virtual void FillPath();
    virtual void SetDrawingPline(bool drawing);
};

/// Makes and destroys renderers.
class KELDRIVER_API HT_RendererFactory {
public:
    /// @param kind     4 for the renderer that draws on a `QPainter`; no other kind is known
    /// @param options  accepted and not read
    /// @return a renderer to release with `DestroyRenderer`, or null for an unknown kind
    static HT_Renderer* CreateRenderer(int kind, unsigned int options);
    /// Destroys a renderer that `CreateRenderer` made; null is ignored.
    static void DestroyRenderer(HT_Renderer* renderer);
};
