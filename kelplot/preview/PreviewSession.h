// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "cli/console/ExitStatus.h"
#include "cli/job/PlotPlan.h"
#include "cli/job/PlotRecord.h"
#include "preview/PreviewDrawing.h"
#include "preview/PreviewWorker.h"
#include "print/PrintJob.h"
#include "print/Printers.h"

namespace kelplot {

/// What a window knows of a drawing that was read.
struct DrawingFacts {
    std::vector<PageFacts> pages;
    size_t firstPage = 0;
    std::vector<LayerFacts> layers;
};

/// A page as it is to be shown.
struct PageOrder {
    int serial = 0;     ///< tells answers apart
    size_t drawing = 0; ///< in the order of opening
    size_t page = 0;
    std::shared_ptr<const PlotPlan> plan;
    std::vector<char> shown;             ///< for each layer
    std::optional<PictureOrder> picture; ///< none: the page is only laid out
};

/// Pages as they are to be written or printed, by a plan of one file.
struct OutputOrder {
    size_t drawing = 0;
    std::shared_ptr<const PlotPlan> plan;
    std::vector<char> shown; ///< for each layer
};

/// Who hears, in the window's thread, of what became of the orders.
struct PreviewEvents {
    std::function<void(const QString& input, double fraction)> reading;
    std::function<void(const QString& input, const DrawingFacts& facts)> opened;
    std::function<void(const QString& error, ExitStatus status)> notOpened;
    std::function<void(int serial, const PageLayout& layout)> laidOut;
    std::function<void(int serial, const PagePicture& picture)> drawing; ///< a picture that still grows
    std::function<void(int serial, const PagePicture& picture, const QStringList& remarks)> drawn;
    std::function<void(int serial, const PagePicture& picture)> overviewDrawn;
    std::function<void(const QString& what, const QStringList& warnings)> done; ///< a file or a print job
    std::function<void(const QString& words)> told;                             ///< by a print queue
    std::function<void(const std::vector<Printer>& printers)> printersFound;
    std::function<void(const QString& error)> failed; ///< any of the others
};

/// The drawings of a preview. Everything is done in a thread of its own, and the answers come as events.
class PreviewSession {
public:
    /// @param events  happen in the thread that calls this, as long as this lives
    explicit PreviewSession(PreviewEvents events);

    void open(const QString& input, std::shared_ptr<const PlotPlan> plan);
    /// Lays a page out and draws it; the newest order counts.
    void show(PageOrder order);
    void write(OutputOrder order);
    void print(OutputOrder order);
    void findPrinters();

private:
    using Task = std::function<void(const Progress& progress)>;

    PreviewWorker::Work guarded(Task task);
    void layOut(const PageOrder& order);
    void draw(const PageOrder& order, const Progress& progress);
    void drawOverview(const PageOrder& order, const Progress& progress);
    std::optional<FileRecord> plot(const PlannedFile& file, const OutputOrder& order, const Progress& progress);
    void follow(std::shared_ptr<PrintJob> job);

    PreviewEvents m_events;
    std::vector<std::unique_ptr<PreviewDrawing>> m_drawings; ///< of the worker's thread
    std::optional<PageOrder> m_laidOut;                      ///< of the worker's thread
    SheetSize m_sheet;                                       ///< of what is laid out
    bool m_hasOverview = false;                              ///< of what is laid out
    PreviewWorker m_worker;                                  ///< ends before what it uses
};

} // namespace kelplot
