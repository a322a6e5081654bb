// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/Kelplot.h"

#include <QGuiApplication>
#include <QTextCodec>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <new>
#include <unistd.h>

#include "cli/CommandLine.h"
#include "cli/Completion.h"
#include "cli/Console.h"
#include "cli/DrawingInput.h"
#include "cli/DrawingListing.h"
#include "cli/ExitStatus.h"
#include "cli/HelpPage.h"
#include "cli/ManualPage.h"
#include "cli/PaperListing.h"
#include "cli/PlotPlan.h"
#include "cli/PlotRecord.h"
#include "cli/PlotRun.h"
#include "cli/PrinterListing.h"
#include "device/OutputFile.h"
#include "print/Printers.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

/// Qt's own remarks are about its installation, not about the user's drawing.
void keepQtQuiet(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::cerr << "kelplot: " << text.toStdString() << std::endl;
    }
}

/// Ends the program where memory runs out again while a plot is being abandoned for lack of it. That happens in
/// destructors of Qt's painters, which write the rest of their document, and leaves no way back to the other drawings.
[[noreturn]] void endWithoutMemory() {
    constexpr int mostText = 4096; // beyond that a path is cut
    static char text[mostText];
    const char* const path = OutputFile::abandonUnfinished();
    const int length = std::snprintf(text, mostText, "kelplot: %s%snot enough memory\n", path, *path ? ": " : "");
    const int told = std::min(length, mostText - 1);
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, text, static_cast<size_t>(told));
    std::_Exit(static_cast<int>(ExitStatus::outputFailed));
}

/// What the runtime calls for an exception that nobody can catch.
[[noreturn]] void endUncaught() {
    if (std::current_exception()) {
        try {
            throw;
        } catch (const std::bad_alloc&) {
            endWithoutMemory();
        } catch (...) { // a bug in the program: let it abort and leave its trace
        }
    }
    std::abort();
}

/// Sets up what Qt needs to know before its application object exists.
void prepareQt() {
    qInstallMessageHandler(keepQtQuiet);
    // No window is ever shown, so no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // File names are taken as they are, also by a job that runs without a locale.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    std::for_each(argv, argv + argc, [&](const char* argument) { arguments << QString::fromUtf8(argument); });
    return arguments;
}

Console::Progress progressMode(const Request& request) {
    if (request.forceProgress) {
        return Console::Progress::always;
    }
    return !request.quiet && isatty(STDERR_FILENO) ? Console::Progress::whenLong : Console::Progress::never;
}

using Listing = void (*)(const QString& input, std::ostream& stream, Console& console);

ExitStatus listAll(const QStringList& inputs, Listing listing, Console& console) {
    ExitStatus worst = ExitStatus::done;
    for (const QString& input : inputs) {
        const auto list = [&] {
            if (inputs.size() > 1) {
                std::cout << input.toStdString() << ":\n";
            }
            listing(input, std::cout, console);
        };
        QString error;
        worst = std::max(worst, guarded(input, console, error, list));
    }
    return worst;
}

/// Prints the warnings. Where warnings count as failures, prints the first one as an error and returns false.
bool passOn(const QStringList& warnings, bool strict, Console& console) {
    for (const QString& warning : warnings) {
        if (strict) {
            console.error(warning.toStdString());
            return false;
        }
        console.warning(warning.toStdString());
    }
    return true;
}

ExitStatus plot(const Request& request, Console& console) {
    const PlotPlan plan = planFor(request);
    if (!passOn(request.warnings + plan.warnings, plan.strict, console)) {
        return ExitStatus::notADrawing;
    }
    const bool writesStream = std::any_of(plan.files.begin(), plan.files.end(),
                                          [](const PlannedFile& file) { return isStandardStream(file.path); });
    if (writesStream && plan.printer.isEmpty() && isatty(STDOUT_FILENO)) {
        throw UsageError(QStringLiteral("standard output is a terminal; give --output FILE"));
    }
    std::ostream& told = writesStream ? std::cerr : std::cout;
    if (plan.savedPaper) {
        const QString saved = savePaper(plan);
        if (!request.quiet) {
            told << saved.toStdString() << std::endl;
        }
    }
    if (!plan.printer.isEmpty()) {
        findPrinter(plan.printer); // before a long plot
    }
    std::vector<FileRecord> records;
    const bool prints = !request.quiet && !request.json;
    const auto tell = [&](const QString& name) {
        if (prints && !isStandardStream(name)) {
            told << name.toStdString() << std::endl;
        }
    };
    const ExitStatus status = plotAll(plan, console, tell, records);
    if (request.json) {
        std::cout << jsonOf(records, static_cast<int>(status)).toStdString();
    }
    return status;
}

/// What ends the program from outside leaves no unfinished file behind.
void leaveNothingWhenStopped() {
    for (const int stop : {SIGINT, SIGTERM, SIGHUP}) {
        const auto before = std::signal(stop, [](int signal) {
            OutputFile::abandonUnfinished();
            std::signal(signal, SIG_DFL);
            std::raise(signal);
        });
        if (before == SIG_IGN) { // nohup and the like
            std::signal(stop, SIG_IGN);
        }
    }
}

ExitStatus run(const Request& request) {
    Console console(std::cerr, progressMode(request), !request.quiet);
    switch (request.action) {
    case Action::showHelp:
        std::cout << helpPage().toStdString();
        return ExitStatus::done;
    case Action::showManual:
        std::cout << manualPage().toStdString();
        return ExitStatus::done;
    case Action::showCompletion:
        std::cout << completionFor(request.shell).toStdString();
        return ExitStatus::done;
    case Action::showVersion:
        std::cout << "kelplot " KELPLOT_VERSION "\n"
                     "Licence GPL-2.0-or-later; plots through libKelDriver (BSD-3-Clause)"
                  << std::endl;
        return ExitStatus::done;
    case Action::listLayers:
        return listAll(request.inputs, listLayers, console);
    case Action::listLayouts:
        return listAll(request.inputs, listLayouts, console);
    case Action::listPapers:
        return listPapers(request.json, std::cout, console);
    case Action::listPrinters:
        listPrinters(std::cout);
        return ExitStatus::done;
    case Action::savePaper:
    case Action::plot:
        break;
    }
    return plot(request, console);
}

/// The final status of a run: text that did not reach standard output is a failure too.
ExitStatus flushed(ExitStatus status) {
    if (std::cout.flush()) {
        return status;
    }
    std::cerr << "kelplot: standard output cannot be written" << std::endl;
    return std::max(status, ExitStatus::outputFailed);
}

} // namespace

int runKelplot(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file that outgrows its limit is reported like one that outgrows its disk
    std::set_terminate(endUncaught);
    leaveNothingWhenStopped();
    prepareQt();
    // The application gets the program's name only: it would take some options for its own.
    char name[] = "kelplot";
    char* nameOnly[] = {name, nullptr};
    int count = 1;
    const QGuiApplication application(count, nameOnly);
    std::setlocale(LC_NUMERIC, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8"); // the library widens paths and settings under it
    try {
        return static_cast<int>(flushed(run(requestFromArguments(argumentsOf(argc, argv)))));
    } catch (const UsageError& error) {
        std::cerr << "kelplot: " << error.what() << "\nTry 'kelplot --help'." << std::endl;
        return static_cast<int>(ExitStatus::usage);
    } catch (const PrintError& error) {
        std::cerr << "kelplot: " << error.what() << std::endl;
        return static_cast<int>(ExitStatus::printFailed);
    } catch (const SettingsError& error) {
        std::cerr << "kelplot: " << error.what() << std::endl;
        return static_cast<int>(ExitStatus::cannotOpen);
    } catch (const std::exception& error) {
        std::cerr << "kelplot: " << error.what() << std::endl;
        return static_cast<int>(ExitStatus::outputFailed);
    }
}

} // namespace kelplot
