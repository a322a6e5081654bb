// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Drawing.h"
#include "geometry/Affine2.h"
#include "geometry/Box2.h"
#include "keldriver/Renderer.h"
#include "plot/EntityWalk.h"
#include "plot/FontTable.h"
#include "plot/PenTable.h"
#include "plot/PictureFault.h"
#include "reader/DrawingReader.h"

class QPainter;

namespace kelplot {

/// What texts are on paper: their outlines, or texts of fonts, which can be searched.
enum class TextMode { outlines, fonts };

/// How the entities of a drawing become ink.
struct PlotStyleOptions {
    bool monochrome = false;
    double lineWeightScale = 1.0;
    PenTable pens{};
    FontTable fonts{};
    TextMode texts = TextMode::outlines; ///< fonts need the target's painter
};

/// Where a plot goes: the map from drawing units to device units, and the size of a millimetre there.
struct PlotTarget {
    Affine2 toDevice; ///< turns the y axis over: device y grows downwards
    double deviceUnitsPerMillimetre = 1.0;
    double hairlineWidth = 1.0;   ///< device units; the thinnest line that shows on the device
    double flatteningError = 0.1; ///< device units; how far a flattened curve may leave the true one
    double thinnestDashed = 0.0;  ///< device units; thinner lines would not get their dashes right
    Box2 pageBox;                 ///< the page in device units
    std::vector<Box2> limits;     ///< device units; only what lies in all of them shows
    QPainter* painter = nullptr;  ///< what the renderer draws with, to turn pictures; borrowed; null: they are left out

    /// The part of the page that shows, as a box; empty when nothing does.
    Box2 visibleBox() const;
};

/// The extents of what `plotEntities` would draw, in drawing units; empty when that is nothing. `report`, if given,
/// receives what is left out of them.
Box2 visibleExtents(const Drawing& drawing, const std::vector<Entity>& entities, WalkReport* report = nullptr,
                    const FontTable& fonts = {});

/// What a plot leaves out.
struct PlotReport : WalkReport {
    PictureFaults missingPictures;
};

/// Draws `entities` of `drawing` through `renderer`, which has started to render and is limited to the visible
/// part of the page from then on. Returns what is left out.
PlotReport plotEntities(const Drawing& drawing, const std::vector<Entity>& entities, const PlotTarget& target,
                        const PlotStyleOptions& style, HT_Renderer& renderer, const Progress& progress);

} // namespace kelplot
