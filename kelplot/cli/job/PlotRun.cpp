// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/PlotRun.h"

#include <algorithm>
#include <new>
#include <optional>

#include "cli/job/PageSequence.h"
#include "cli/job/PlotJob.h"
#include "device/OutputFile.h"
#include "reader/DrawingReader.h"

namespace kelplot {

ExitStatus guarded(const QString& name, Console& console, QString& error, const std::function<void()>& work) {
    const auto tell = [&](const QString& text, ExitStatus status) {
        error = text;
        console.error(text.toStdString());
        return status;
    };
    try {
        work();
        return ExitStatus::done;
    } catch (const ReadError& fault) {
        const bool isUnread = fault.reason == ReadError::Reason::cannotOpen;
        return tell(QString::fromUtf8(fault.what()), isUnread ? ExitStatus::cannotOpen : ExitStatus::notADrawing);
    } catch (const StrictFailure& fault) {
        return tell(QString::fromUtf8(fault.what()), ExitStatus::notADrawing);
    } catch (const UsageError& fault) {
        return tell(name + QStringLiteral(": ") + QString::fromUtf8(fault.what()), ExitStatus::usage);
    } catch (const OutputError& fault) {
        return tell(QString::fromUtf8(fault.what()), ExitStatus::outputFailed);
    } catch (const PrintError& fault) {
        return tell(QString::fromUtf8(fault.what()), ExitStatus::printFailed);
    } catch (const std::bad_alloc&) {
        return tell(name + QStringLiteral(": not enough memory"), ExitStatus::outputFailed);
    } catch (const std::exception& fault) {
        return tell(name + QStringLiteral(": ") + QString::fromUtf8(fault.what()), ExitStatus::outputFailed);
    }
}

ExitStatus plotPages(const PlannedFile& file, const PlotPlan& plan, const DrawingSource& source, Console& console,
                     FileRecord& record) {
    PageSequence pages(file, plan);
    for (const QString& input : file.inputs) {
        DrawingRecord& drawing = record.drawings.emplace_back();
        drawing.drawing = input;
        const ExitStatus status = guarded(input, console, drawing.error,
                                          [&] { plotDrawing(input, file, plan, source, pages, console, drawing); });
        if (status != ExitStatus::done) {
            return status;
        }
    }
    return guarded(file.path, console, record.drawings.back().error, [&] { pages.finish(); });
}

std::unique_ptr<PrintJob> startPrinting(const PlannedFile& file, const PlotPlan& plan, PrintSpool& spool,
                                        const FileRecord& record) {
    PrintOptions options = plan.print;
    options.title = file.title;
    options.paper = record.drawings.front().pages.front().sheet;
    auto job = std::make_unique<PrintJob>(plan.printer, options);
    job->send(spool.pages());
    return job;
}

namespace {

/// What plotting or printing a file needs besides.
struct PlotRun {
    const PlotPlan& plan;
    const DrawingSource& source;
    Console& console;
    const std::function<void(const QString&)>& tell;
};

ExitStatus plotFile(const PlannedFile& file, const PlotRun& run, FileRecord& record) {
    const ExitStatus status = plotPages(file, run.plan, run.source, run.console, record);
    record.written = status == ExitStatus::done;
    if (record.written) {
        run.tell(file.path);
    }
    return status;
}

/// Plots a file's pages where only the printer sees them.
ExitStatus printFile(const PlannedFile& file, const PlotRun& run, FileRecord& record) {
    std::optional<PrintSpool> spool;
    PlannedFile spooled = file;
    QString failure;
    ExitStatus status = guarded(run.plan.printer, run.console, failure, [&] { spooled.path = spool.emplace().path(); });
    status = status == ExitStatus::done ? plotPages(spooled, run.plan, run.source, run.console, record) : status;
    if (status != ExitStatus::done) {
        return status;
    }
    return guarded(run.plan.printer, run.console, record.drawings.back().error, [&] {
        const std::unique_ptr<PrintJob> job = startPrinting(file, run.plan, *spool, record);
        record.file = job->name();
        record.written = true;
        run.tell(job->name());
        if (run.plan.waitsForPrinter) {
            job->follow([&](const QString& words) {
                run.console.note((job->name() + QStringLiteral(": ") + words).toStdString());
            });
        }
    });
}

} // namespace

ExitStatus plotAll(const PlotPlan& plan, const DrawingSource& source, Console& console,
                   const std::function<void(const QString&)>& tell, std::vector<FileRecord>& records) {
    const PlotRun run{plan, source, console, tell};
    ExitStatus worst = ExitStatus::done;
    for (const PlannedFile& file : plan.files) {
        FileRecord& record = records.emplace_back();
        record.file = file.path;
        worst = std::max(worst, plan.printer.isEmpty() ? plotFile(file, run, record) : printFile(file, run, record));
    }
    return worst;
}

} // namespace kelplot
