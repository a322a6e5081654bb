// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/cli/KelplotRun.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <sstream>

#include "cli/CommandLine.h"
#include "cli/PlotJob.h"
#include "keldriver/Utility.h"

namespace {

/// Gives the tests that call the program's parts its settings, and keeps those of whoever runs them out.
class ProgramSettings : public ::testing::Environment {
    void SetUp() override {
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(m_ownSettings.path()));
        VornSetAppDataPath(L"" KELPLOT_DRIVERS);
    }
    TemporaryDirectory m_ownSettings;
};

class LimitedProcess : public QProcess {
public:
    explicit LimitedProcess(const Limits& limits) : m_limits(limits) {}

protected:
    void setupChildProcess() override {
        limit(RLIMIT_FSIZE, m_limits.fileSize);
        limit(RLIMIT_DATA, m_limits.memory);
    }

private:
    static void limit(decltype(RLIMIT_FSIZE) resource, rlim_t bytes) {
        if (bytes != RLIM_INFINITY) {
            const rlimit bound{bytes, bytes};
            setrlimit(resource, &bound);
        }
    }
    Limits m_limits;
};

/// The directory and the user's settings of a run, until the end of its scope.
class RunsIn {
public:
    explicit RunsIn(const TemporaryDirectory& directory) {
        QDir::setCurrent(QString::fromStdString(directory.path()));
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(directory.path("config")));
    }
    ~RunsIn() {
        QDir::setCurrent(m_directory);
        qputenv("XDG_CONFIG_HOME", m_settings);
    }
    RunsIn(const RunsIn&) = delete;
    RunsIn& operator=(const RunsIn&) = delete;

private:
    QString m_directory = QDir::currentPath();
    QByteArray m_settings = qgetenv("XDG_CONFIG_HOME");
};

const auto* const programSettings = ::testing::AddGlobalTestEnvironment(new ProgramSettings);

} // namespace

Outcome run(const TemporaryDirectory& directory, const QStringList& arguments, const QString& program,
            const Limits& limits) {
    LimitedProcess process(limits);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LANG", "LC_ALL"}) {
        environment.remove(QString::fromLatin1(name));
    }
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(directory.path("config")));
    // For builds with sanitizers; to others this variable means nothing.
    environment.insert(QStringLiteral("LSAN_OPTIONS"),
                       QStringLiteral("print_suppressions=0:suppressions=" LEAK_SUPPRESSIONS));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(directory.path()));
    process.start(program, arguments);
    const bool ended = process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

std::string plotHere(const TemporaryDirectory& directory, const QStringList& arguments) {
    using namespace kelplot;
    const RunsIn place(directory);
    std::ostringstream messages;
    try {
        const Request request = requestFromArguments(QStringList{"kelplot"} + arguments);
        const PlotPlan plan = planFor(request);
        Console console(messages, Console::Progress::never, !request.quiet);
        for (const QString& warning : request.warnings + plan.warnings) {
            console.warning(warning.toStdString());
        }
        if (plan.savedPaper) {
            savePaper(plan);
        }
        for (int i = 0; i < plan.inputs.size(); ++i) {
            plotDrawing(plan.inputs[i], plan.outputs[i], plan, console);
        }
    } catch (const std::exception& error) {
        messages << "kelplot: " << error.what() << '\n';
    }
    return messages.str();
}

QStringList filesIn(const TemporaryDirectory& directory) {
    return QDir(QString::fromStdString(directory.path())).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}
