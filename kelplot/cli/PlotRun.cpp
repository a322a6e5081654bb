// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/PlotRun.h"

#include <algorithm>
#include <new>
#include <optional>

#include "cli/PageSequence.h"
#include "cli/PlotJob.h"
#include "cli/PrintSpool.h"
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

namespace {

/// Plots all drawings of a file, or none: an incomplete document is not what was asked for.
ExitStatus plotPages(const PlannedFile& file, const PlotPlan& plan, Console& console, FileRecord& record) {
    PageSequence pages(file, plan);
    for (const QString& input : file.inputs) {
        DrawingRecord& drawing = record.drawings.emplace_back();
        drawing.drawing = input;
        const ExitStatus status =
            guarded(input, console, drawing.error, [&] { plotDrawing(input, file, plan, pages, console, drawing); });
        if (status != ExitStatus::done) {
            return status;
        }
    }
    return guarded(file.path, console, record.drawings.back().error, [&] { pages.finish(); });
}

ExitStatus plotFile(const PlannedFile& file, const PlotPlan& plan, Console& console,
                    const std::function<void(const QString&)>& tell, FileRecord& record) {
    const ExitStatus status = plotPages(file, plan, console, record);
    record.written = status == ExitStatus::done;
    if (record.written) {
        tell(file.path);
    }
    return status;
}

/// Plots a file's pages where only the printer sees them.
ExitStatus printFile(const PlannedFile& file, const PlotPlan& plan, Console& console,
                     const std::function<void(const QString&)>& tell, FileRecord& record) {
    std::optional<PrintSpool> spool;
    PlannedFile spooled = file;
    QString failure;
    ExitStatus status = guarded(plan.printer, console, failure, [&] { spooled.path = spool.emplace().path(); });
    status = status == ExitStatus::done ? plotPages(spooled, plan, console, record) : status;
    if (status != ExitStatus::done) {
        return status;
    }
    return guarded(plan.printer, console, record.drawings.back().error, [&] {
        PrintOptions options = plan.print;
        options.title = file.title;
        options.paper = record.drawings.front().pages.front().sheet;
        PrintJob job(plan.printer, options);
        job.send(spool->pages());
        record.file = job.name();
        record.written = true;
        tell(job.name());
        if (plan.waitsForPrinter) {
            job.follow(
                [&](const QString& words) { console.note((job.name() + QStringLiteral(": ") + words).toStdString()); });
        }
    });
}

} // namespace

ExitStatus plotAll(const PlotPlan& plan, Console& console, const std::function<void(const QString&)>& tell,
                   std::vector<FileRecord>& records) {
    ExitStatus worst = ExitStatus::done;
    for (const PlannedFile& file : plan.files) {
        FileRecord& record = records.emplace_back();
        record.file = file.path;
        worst = std::max(worst, plan.printer.isEmpty() ? plotFile(file, plan, console, tell, record)
                                                       : printFile(file, plan, console, tell, record));
    }
    return worst;
}

} // namespace kelplot
