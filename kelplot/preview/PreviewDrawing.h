// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QColor>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "base/Progress.h"
#include "cli/job/PlotPlan.h"
#include "cli/job/SpaceChoice.h"
#include "plot/DrawingPlot.h"
#include "preview/PagePicture.h"

namespace kelplot {

/// A layer as the list of layers shows it.
struct LayerFacts {
    QString name;
    QColor colour;     ///< of its ink
    bool shown = true; ///< at first, as the drawing and the command line say
};

/// A page of a drawing.
struct PageFacts {
    QString title;
    QString layout; ///< by which name the plan is to choose it
};

/// A drawing whose pages are looked at. It belongs to the thread that draws.
class PreviewDrawing {
public:
    /// Reads a drawing. Throws `ReadError` or `UsageError`.
    PreviewDrawing(const QString& input, std::shared_ptr<const PlotPlan> plan, const Progress& progress);

    /// The pages with anything on them, at least one.
    const std::vector<PageFacts>& pages() const { return m_pages; }
    /// The page that the command line, or else the drawing, puts first.
    size_t firstPage() const { return m_firstPage; }
    std::vector<LayerFacts> layers() const;

    /// How all is drawn from here on; forgets the remarks.
    void usePlan(std::shared_ptr<const PlotPlan> plan);
    /// Which layers are drawn from here on.
    ///
    /// @param shown  for each layer; empty: as at first
    void switchLayers(const std::vector<char>& shown);

    /// Lays a page out as what is in use says.
    const PageLayout& layOut(size_t page);

    /// Draws a part of a page that is laid out. Throws what `progress` throws, and `std::bad_alloc`.
    ///
    /// @param watch  sees the picture as it grows, now and then; may be empty
    QImage draw(size_t page, const PictureOrder& order, const Progress& progress,
                const std::function<void(const QImage&)>& watch = {});

    /// What there is to tell of the pages that were laid out and drawn by the plan in use, each once.
    QStringList remarks() const;

    /// The drawing with its layers as they are switched.
    std::shared_ptr<const Drawing> drawing() const { return m_drawing; }

private:
    void findPages();
    void remark(const QStringList& texts);

    std::shared_ptr<Drawing> m_drawing;
    std::shared_ptr<const PlotPlan> m_plan;
    std::vector<Layer> m_layers; ///< as they were read
    std::unique_ptr<DrawingPlot> m_plot;
    std::vector<PageFacts> m_pages;
    std::vector<Space> m_spaces; ///< of the pages
    size_t m_firstPage = 0;
    PageLayout m_layout; ///< of the page that was laid out last
    QStringList m_readingRemarks;
    QStringList m_remarks; ///< without those about fonts
};

} // namespace kelplot
