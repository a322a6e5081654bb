// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "device/DirectPainter.h"
#include "geometry/PlanMap.h"
#include "keldriver/Renderer.h"
#include "page/PlotTarget.h"
#include "plot/pen/ClipStack.h"
#include "plot/picture/PictureStore.h"

namespace kelplot {

/// Draws the pixels of placed pictures through a renderer.
class PicturePlotter {
public:
    /// All but `grey` are borrowed for the plotter's life.
    ///
    /// @param grey    colours come out as greys
    /// @param direct  what turns pictures; null: those that are turned are left out
    PicturePlotter(PictureStore& store, ClipStack& clips, bool grey, HT_Renderer& renderer, DirectPainter* direct)
        : m_store(store), m_clips(clips), m_grey(grey), m_renderer(renderer), m_direct(direct) {}

    /// Draws a picture. False where its file cannot be loaded.
    bool draw(const Image& image, uint8_t opacity, const PlanMap& map);

    PictureStore& store() { return m_store; }

private:
    /// Where a picture lies, in device units.
    struct Place {
        Vec2 corner; ///< the upper left one of the picture
        Vec2 right;  ///< along its upper edge
        Vec2 down;   ///< along its left edge

        bool isStraight() const;
    };

    HT_RasterImagePtr fittingDevice(const Place& place, const HT_RasterImage& picture) const;
    void drawClipped(const Image& image, const PlanMap& map, const Place& place, HT_RasterImage& picture);
    void drawPixels(const Place& place, HT_RasterImage& picture);
    void drawTurned(const Place& place, HT_RasterImage& picture);

    PictureStore& m_store;
    ClipStack& m_clips;
    bool m_grey;
    HT_Renderer& m_renderer;
    DirectPainter* m_direct;
};

} // namespace kelplot
