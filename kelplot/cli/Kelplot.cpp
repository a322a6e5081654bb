// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/Kelplot.h"

#include <QFile>
#include <QGuiApplication>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <iostream>
#include <optional>
#include <unistd.h>

#include "cli/ProgramFrame.h"
#include "cli/SessionFolder.h"
#include "cli/console/Console.h"
#include "cli/console/ExitStatus.h"
#include "cli/job/DrawingInput.h"
#include "cli/job/PlotPlan.h"
#include "cli/job/PlotRecord.h"
#include "cli/job/PlotRun.h"
#include "cli/listing/DrawingListing.h"
#include "cli/listing/PaperListing.h"
#include "cli/listing/PrinterListing.h"
#include "cli/options/CommandLine.h"
#include "cli/options/Completion.h"
#include "cli/options/HelpPage.h"
#include "cli/options/ManualPage.h"
#include "keldriver/Version.h"
#include "print/Printers.h"

namespace kelplot {
namespace {

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
    const bool writesStream =
        plan.printer.isEmpty() && std::any_of(plan.files.begin(), plan.files.end(),
                                              [](const PlannedFile& file) { return isStandardStream(file.path); });
    if (writesStream && request.json) {
        throw UsageError(QStringLiteral("--json: the plot goes to standard output already; give --output FILE"));
    }
    if (writesStream && isatty(STDOUT_FILENO)) {
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
    const ExitStatus status = plotAll(plan, readToPlot, console, tell, records);
    if (request.json) {
        std::cout << jsonOf(records, static_cast<int>(status)).toStdString();
    }
    return status;
}

void showVersion() {
    constexpr int place = 100; // of each number in the library's version
    const int library = HT_GetLibraryVersion();
    std::cout << "kelplot " KELPLOT_VERSION "\nLicence GPL-2.0-or-later; plots through libKelDriver "
              << library / (place * place) << '.' << library / place % place << '.' << library % place
              << " (BSD-3-Clause)" << std::endl;
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
        showVersion();
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
    case Action::preview: // replaces the program before it gets here
    case Action::plot:
        break;
    }
    return plot(request, console);
}

/// Replaces this program by the one that shows drawings, which lies beside it where it is installed. Throws
/// `UsageError`.
[[noreturn]] void becomePreview(char** argv) {
    const QString path = QCoreApplication::applicationDirPath() + QStringLiteral("/kelplot-preview");
    if (!QFile::exists(path)) {
        throw UsageError(QStringLiteral("--preview: is not installed; there is no %1").arg(path));
    }
    ::execv(QFile::encodeName(path).constData(), argv);
    throw UsageError(QStringLiteral("--preview: %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno))));
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
    prepareProgram();
    // No window is ever shown, so no display is needed.
    const bool choosesPlatform = qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (choosesPlatform) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // The application gets the program's name only: it would take some options for its own.
    char name[] = "kelplot";
    char* nameOnly[] = {name, nullptr};
    int count = 1;
    std::optional<SessionFolder> session(std::in_place);
    const QGuiApplication application(count, nameOnly);
    session.reset();
    useNeutralLocale();
    return statusOf([&] {
        const Request request = requestFromArguments(argumentsOf(argc, argv));
        if (request.action != Action::preview) {
            return flushed(run(request));
        }
        if (choosesPlatform) {
            qunsetenv("QT_QPA_PLATFORM");
        }
        becomePreview(argv);
    });
}

} // namespace kelplot
