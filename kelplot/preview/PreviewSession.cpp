// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PreviewSession.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <sstream>

#include "cli/job/PlotRun.h"
#include "reader/DrawingReader.h"

namespace kelplot {
namespace {

/// Pixels along the longer side: as many as a screen has, so that it does not look coarse while it is moved.
constexpr double overviewSide = 2000.0;

PictureOrder wholePage(const SheetSize& sheet) {
    const double scale = overviewSide / std::max(sheet.width, sheet.height);
    const auto pixels = [&](double length) {
        return std::max(1, static_cast<int>(std::lround(length * scale)));
    };
    return {scale, QRect(0, 0, pixels(sheet.width), pixels(sheet.height))};
}

bool isWhole(const PictureOrder& order, const SheetSize& sheet) {
    const double scale = order.pixelsPerMillimetre;
    return order.place.width() >= std::lround(sheet.width * scale) &&
           order.place.height() >= std::lround(sheet.height * scale);
}

} // namespace

PreviewSession::PreviewSession(PreviewEvents events) : m_events(std::move(events)) {
}

/// Tells of what a task throws.
PreviewWorker::Work PreviewSession::guarded(Task task) {
    return [this, task = std::move(task)](const Progress& progress) {
        QString error;
        try {
            task(progress);
            return;
        } catch (const std::bad_alloc&) {
            error = QStringLiteral("not enough memory");
        } catch (const std::exception& fault) {
            error = QString::fromUtf8(fault.what());
        }
        m_worker.tell([this, error] { m_events.failed(error); });
    };
}

void PreviewSession::open(const QString& input, std::shared_ptr<const PlotPlan> plan) {
    m_worker.post([this, input, plan](const Progress& progress) {
        std::ostringstream sink;
        Console console(sink, Console::Progress::never, false);
        int told = 0; // per cent
        const auto tellProgress = [&](double fraction) {
            progress(fraction);
            if (const int percent = static_cast<int>(fraction * 100.0); percent > told) {
                told = percent;
                m_worker.tell([this, input, fraction] { m_events.reading(input, fraction); });
            }
        };
        QString error;
        const ExitStatus status = kelplot::guarded(input, console, error, [&] {
            m_drawings.push_back(std::make_unique<PreviewDrawing>(input, plan, tellProgress));
        });
        if (status != ExitStatus::done) {
            m_worker.tell([this, error, status] { m_events.notOpened(error, status); });
            return;
        }
        const PreviewDrawing& drawing = *m_drawings.back();
        const DrawingFacts facts{drawing.pages(), drawing.firstPage(), drawing.layers()};
        m_worker.tell([this, input, facts] { m_events.opened(input, facts); });
    });
}

void PreviewSession::show(PageOrder order) {
    m_worker.draw(guarded([this, order = std::move(order)](const Progress& progress) {
        layOut(order);
        if (order.picture) {
            draw(order, progress);
            drawOverview(order, progress);
        }
    }));
}

void PreviewSession::layOut(const PageOrder& order) {
    PreviewDrawing& drawing = *m_drawings[order.drawing];
    const bool isSame = m_laidOut && m_laidOut->drawing == order.drawing && m_laidOut->plan == order.plan &&
                        m_laidOut->shown == order.shown && m_laidOut->page == order.page;
    if (isSame) {
        return;
    }
    m_laidOut.reset();
    drawing.usePlan(order.plan);
    drawing.switchLayers(order.shown);
    const PageLayout layout = drawing.layOut(order.page);
    m_sheet = layout.sheet;
    m_hasOverview = false;
    m_laidOut = order;
    m_worker.tell([this, serial = order.serial, layout] { m_events.laidOut(serial, layout); });
}

void PreviewSession::draw(const PageOrder& order, const Progress& progress) {
    PreviewDrawing& drawing = *m_drawings[order.drawing];
    const auto watch = [&](const QImage& image) {
        // A page of which nothing is shown yet is better seen unfinished.
        if (!m_hasOverview) {
            const PagePicture picture{*order.picture, image.copy()};
            m_worker.tell([this, serial = order.serial, picture] { m_events.drawing(serial, picture); });
        }
    };
    const PagePicture picture{*order.picture, drawing.draw(order.page, *order.picture, progress, watch)};
    const bool serves = isWhole(*order.picture, m_sheet);
    m_worker.tell([this, serial = order.serial, picture, remarks = drawing.remarks(), serves] {
        m_events.drawn(serial, picture, remarks);
        if (serves) {
            m_events.overviewDrawn(serial, picture);
        }
    });
    m_hasOverview = m_hasOverview || serves;
}

void PreviewSession::drawOverview(const PageOrder& order, const Progress& progress) {
    if (m_hasOverview) {
        return;
    }
    const PictureOrder whole = wholePage(m_sheet);
    const PagePicture picture{whole, m_drawings[order.drawing]->draw(order.page, whole, progress)};
    m_hasOverview = true;
    m_worker.tell([this, serial = order.serial, picture] { m_events.overviewDrawn(serial, picture); });
}

/// Plots the pages of an order; nothing where that fails, which is told.
std::optional<FileRecord> PreviewSession::plot(const PlannedFile& file, const OutputOrder& order,
                                               const Progress& progress) {
    PreviewDrawing& drawing = *m_drawings[order.drawing];
    if (m_laidOut && m_laidOut->drawing == order.drawing && m_laidOut->shown != order.shown) {
        m_laidOut.reset();
    }
    drawing.switchLayers(order.shown);
    std::ostringstream sink;
    Console console(sink, Console::Progress::never, false);
    console.watchProgress(progress);
    const DrawingSource source = [&](const QString&, const PlotPlan&, const Progress&, QStringList&) {
        return drawing.drawing();
    };
    FileRecord record;
    if (plotPages(file, *order.plan, source, console, record) == ExitStatus::done) {
        return record;
    }
    m_worker.tell([this, error = record.drawings.back().error] { m_events.failed(error); });
    return std::nullopt;
}

void PreviewSession::write(OutputOrder order) {
    m_worker.post(guarded([this, order = std::move(order)](const Progress& progress) {
        const PlannedFile& file = order.plan->files.front();
        if (const auto record = plot(file, order, progress)) {
            m_worker.tell([this, path = file.path, warnings = record->drawings.back().warnings] {
                m_events.done(path, warnings);
            });
        }
    }));
}

void PreviewSession::print(OutputOrder order) {
    m_worker.post(guarded([this, order = std::move(order)](const Progress& progress) {
        PrintSpool spool;
        const PlannedFile& file = order.plan->files.front();
        PlannedFile spooled = file;
        spooled.path = spool.path();
        if (const auto record = plot(spooled, order, progress)) {
            follow(startPrinting(file, *order.plan, spool, *record));
        }
    }));
}

/// Tells what becomes of a job until it has left the queue.
void PreviewSession::follow(std::shared_ptr<PrintJob> job) {
    m_worker.tell([this, name = job->name()] { m_events.told(QStringLiteral("%1 is in the queue").arg(name)); });
    m_worker.watch([this, job = std::move(job), told = QString()]() mutable {
        QString words;
        try {
            if (job->hasLeft(words)) {
                m_worker.tell([this, name = job->name()] { m_events.done(name, {}); });
                return true;
            }
        } catch (const PrintError& error) {
            m_worker.tell([this, text = QString::fromUtf8(error.what())] { m_events.failed(text); });
            return true;
        }
        if (!words.isEmpty() && words != told) {
            told = words;
            m_worker.tell([this, text = job->name() + QStringLiteral(": ") + words] { m_events.told(text); });
        }
        return false;
    });
}

void PreviewSession::findPrinters() {
    m_worker.post(guarded(
        [this](const Progress&) { m_worker.tell([this, found = printers()] { m_events.printersFound(found); }); }));
}

} // namespace kelplot
