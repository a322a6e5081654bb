// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/ProgramFrame.h"

#include <QTextCodec>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <unistd.h>

#include "cli/options/Request.h"
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

} // namespace

void prepareProgram() {
    std::signal(SIGXFSZ, SIG_IGN); // a file that outgrows its limit is reported like one that outgrows its disk
    std::set_terminate(endUncaught);
    leaveNothingWhenStopped();
    qInstallMessageHandler(keepQtQuiet);
    // File names are taken as they are, also by a job that runs without a locale.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

void useNeutralLocale() {
    std::setlocale(LC_NUMERIC, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8"); // the library widens paths and settings under it
}

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    std::for_each(argv, argv + argc, [&](const char* argument) { arguments << QString::fromUtf8(argument); });
    return arguments;
}

int statusOf(const std::function<ExitStatus()>& program) {
    const auto tell = [](const std::exception& error, ExitStatus status) {
        std::cerr << "kelplot: " << error.what() << std::endl;
        return static_cast<int>(status);
    };
    try {
        return static_cast<int>(program());
    } catch (const UsageError& error) {
        std::cerr << "kelplot: " << error.what() << "\nTry 'kelplot --help'." << std::endl;
        return static_cast<int>(ExitStatus::usage);
    } catch (const PrintError& error) {
        return tell(error, ExitStatus::printFailed);
    } catch (const SettingsError& error) {
        return tell(error, ExitStatus::cannotOpen);
    } catch (const std::exception& error) {
        return tell(error, ExitStatus::outputFailed);
    }
}

} // namespace kelplot
