// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/cli/KelplotRun.h"

#include <QProcess>
#include <QRegularExpression>

namespace {

/// The notes on fonts differ from machine to machine.
QString withoutFontNotes(QString messages) {
    static const QRegularExpression note(QStringLiteral("kelplot: note: [^\n]*: fonts replaced: [^\n]*\n"));
    return messages.remove(note);
}

} // namespace

Outcome run(const TemporaryDirectory& directory, const QStringList& arguments, const QString& program) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LANG", "LC_ALL"}) {
        environment.remove(QString::fromLatin1(name));
    }
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(directory.path("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), QString::fromStdString(directory.path("cache")));
    // For builds with sanitizers; to others this variable means nothing.
    environment.insert(QStringLiteral("LSAN_OPTIONS"),
                       QStringLiteral("print_suppressions=0:suppressions=" LEAK_SUPPRESSIONS));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(directory.path()));
    process.start(program, arguments);
    const bool ended = process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            withoutFontNotes(QString::fromUtf8(process.readAllStandardError()))};
}
