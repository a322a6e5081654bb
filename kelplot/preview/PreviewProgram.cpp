// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PreviewProgram.h"

#include <QApplication>

#include "cli/ProgramFrame.h"
#include "cli/options/CommandLine.h"
#include "preview/PreviewWindow.h"

namespace kelplot {
namespace {

/// The request of a command line, which asks for nothing but to show drawings. Throws `UsageError`.
Request requestToShow(const QStringList& arguments) {
    Request request = requestFromArguments(arguments);
    if (request.action != Action::preview && request.action != Action::plot) {
        throw UsageError(QStringLiteral("kelplot-preview only shows drawings"));
    }
    if (!request.savedPaper.isEmpty()) {
        throw UsageError(QStringLiteral("--save-paper: not with --preview"));
    }
    return request;
}

/// Whether there is anything to show a window on. Qt would end the program by a signal.
bool hasDisplay() {
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

int runPreview(int argc, char** argv) {
    prepareProgram();
    if (!hasDisplay()) {
        return statusOf([]() -> ExitStatus {
            throw UsageError(QStringLiteral("--preview: there is no display: DISPLAY and WAYLAND_DISPLAY are not set"));
        });
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // The application gets the program's name only: it would take some options for its own.
    char name[] = "kelplot-preview";
    char* nameOnly[] = {name, nullptr};
    int count = 1;
    const QApplication application(count, nameOnly);
    useNeutralLocale();
    return statusOf([&] {
        PreviewWindow window(requestToShow(argumentsOf(argc, argv)));
        window.show();
        QApplication::exec();
        return window.status();
    });
}

} // namespace kelplot
