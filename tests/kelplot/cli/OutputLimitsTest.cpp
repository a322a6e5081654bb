// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>

#include "kelplot/cli/KelplotRun.h"

namespace {

const QString showcase = QStringLiteral(EXAMPLE_DRAWINGS "/showcase.dxf");

const std::string oldPlot = "Plotted with kelplot last year";

/// Plots over an old file under a limit that the plot does not keep to.
void expectOldPlotKept(const std::string& name, const QString& drawing, const QString& limit, const QString& message) {
    SCOPED_TRACE(name + " under " + limit.toStdString());
    const TemporaryDirectory directory;
    directory.write(name, oldPlot);
    const QString file = QString::fromStdString(name);
    const Outcome outcome = run(directory, {limit, KELPLOT_PROGRAM, "-o", file, drawing}, "prlimit");
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.messages, message);
    EXPECT_EQ(directory.read(name), oldPlot);
    EXPECT_EQ(QDir(QString::fromStdString(directory.path())).entryList(QDir::Files | QDir::Hidden), QStringList{file});
}

TEST(OutputLimits, AFileThatGrowsTooLargeLeavesTheOldOneWhole) {
    for (const std::string name : {"x.pdf", "x.png", "x.svg"}) {
        const TemporaryDirectory directory;
        ASSERT_EQ(run(directory, {"-o", QString::fromStdString(name), showcase}).status, 0);
        const auto size = directory.read(name).size();
        for (const auto bytes : {size_t{12 << 10}, size / 2, size - 1}) {
            expectOldPlotKept(name, showcase, QString("--fsize=%1").arg(bytes),
                              QString::fromStdString("kelplot: " + name + ": File too large\n"));
        }
    }
}

TEST(OutputLimits, AFullDiskLeavesTheOldOneWhole) {
    if (QProcess::execute("unshare", {"-Urm", "true"}) != 0) {
        GTEST_SKIP() << "file systems of a user's own are not allowed here";
    }
    const TemporaryDirectory directory;
    directory.write("old", oldPlot);
    const QString plot = "mkdir -p d && mount -t tmpfs -o size=%1k none d && cp old d/%2 || exit 99; "
                         "'%3' -o d/%2 '%4'; status=$?; cmp old d/%2 && [ \"$(ls -A d)\" = %2 ] || exit 98; "
                         "exit $status";
    for (const char* const name : {"x.pdf", "x.png", "x.svg"}) {
        ASSERT_EQ(run(directory, {"-o", name, showcase}).status, 0);
        const int half = static_cast<int>(directory.read(name).size() >> 11);
        for (const int kilobytes : {12, half}) {
            const QString script = plot.arg(kilobytes).arg(name, KELPLOT_PROGRAM, showcase);
            const Outcome outcome = run(directory, {"-Urm", "sh", "-c", script}, "unshare");
            EXPECT_EQ(outcome.status, 4) << name << " in " << kilobytes << " KB";
            EXPECT_EQ(outcome.messages, QString("kelplot: d/%1: No space left on device\n").arg(name));
        }
    }
}

TEST(OutputLimits, MemoryThatRunsOutLeavesTheOldOneWhole) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer takes more memory than the test leaves";
#endif
    const TemporaryDirectory directory;
    std::string lines;
    for (int i = 0; i < 700000; ++i) {
        lines += "0\nLINE\n11\n1\n";
    }
    const QString drawing = QString::fromStdString(
        directory.write("lines.dxf", "0\nSECTION\n2\nENTITIES\n" + lines + "0\nENDSEC\n0\nEOF\n"));
    expectOldPlotKept("x.svg", drawing, "--data=100663296", "kelplot: " + drawing + ": not enough memory\n");
}

} // namespace
