// SPDX-License-Identifier: GPL-2.0-or-later
#include <QProcess>
#include <gtest/gtest.h>

#include "kelplot/cli/KelplotRun.h"

namespace {

const QString showcase = QStringLiteral(EXAMPLE_DRAWINGS "/showcase.dxf");
const std::string oldPlot = "the plot of last year";

/// Plots over an old file under limits that the plot does not keep to.
void expectOldPlotKept(const QString& name, const QString& drawing, const Limits& limits, const QString& reason) {
    const TemporaryDirectory directory;
    directory.write(name.toStdString(), oldPlot);
    const Outcome outcome = run(directory, {"-o", name, drawing}, KELPLOT_PROGRAM, limits);
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.messages, "kelplot: " + name + ": " + reason + "\n");
    EXPECT_EQ(directory.read(name.toStdString()), oldPlot);
    EXPECT_EQ(filesIn(directory), QStringList{name});
}

TEST(OutputLimits, AFileThatGrowsTooLargeLeavesTheOldOneWhole) {
    for (const char* const name : {"x.pdf", "x.png", "x.svg"}) {
        for (const rlim_t kilobytes : {12u, 60u, 96u, 200u}) {
            SCOPED_TRACE(testing::Message() << name << " in " << kilobytes << " KB");
            expectOldPlotKept(name, showcase, {kilobytes * 1024, RLIM_INFINITY}, "File too large");
        }
    }
}

TEST(OutputLimits, AFullDiskLeavesTheOldOneWhole) {
    if (QProcess::execute(QStringLiteral("unshare"), {"-Urm", "true"}) != 0) {
        GTEST_SKIP() << "file systems of a user's own are not allowed here";
    }
    const TemporaryDirectory directory;
    directory.write("old", oldPlot);
    const QString plot =
        QStringLiteral("mkdir -p d && mount -t tmpfs -o size=%1k none d && cp old d/%2 || exit 99; "
                       "'%3' -o d/%2 '%4'; status=$?; cmp old d/%2 && [ \"$(ls -A d)\" = %2 ] || exit 98; "
                       "exit $status");
    for (const char* const name : {"x.pdf", "x.png", "x.svg"}) {
        for (const int kilobytes : {12, 60, 96, 200}) {
            SCOPED_TRACE(testing::Message() << name << " in " << kilobytes << " KB");
            const QString script = plot.arg(kilobytes).arg(name, QStringLiteral(KELPLOT_PROGRAM), showcase);
            const Outcome outcome = run(directory, {"-Urm", "sh", "-c", script}, QStringLiteral("unshare"));
            EXPECT_EQ(outcome.status, 4);
            EXPECT_EQ(outcome.messages, QStringLiteral("kelplot: d/%1: No space left on device\n").arg(name));
        }
    }
}

TEST(OutputLimits, TheLastByteCountsToo) {
    const TemporaryDirectory directory;
    ASSERT_EQ(run(directory, {"-o", "x.svg", showcase}).status, 0);
    const rlim_t size = directory.read("x.svg").size();
    EXPECT_EQ(run(directory, {"-o", "x.svg", showcase}, KELPLOT_PROGRAM, {size, RLIM_INFINITY}).status, 0);
    expectOldPlotKept("x.svg", showcase, {size - 1, RLIM_INFINITY}, "File too large");
}

TEST(OutputLimits, MemoryThatRunsOutLeavesTheOldOneWhole) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer takes more memory than the test leaves";
#endif
    const TemporaryDirectory directory;
    const std::string drawing = directory.write(
        "copies.dxf",
        "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB\n0\nLINE\n10\n0\n20\n0\n11\n1\n21\n1\n0\nENDBLK\n0\nENDSEC\n"
        "0\nSECTION\n2\nENTITIES\n0\nINSERT\n2\nB\n70\n800\n71\n800\n44\n3\n45\n3\n0\nENDSEC\n0\nEOF\n");
    // The document takes 50 MB and is held in memory, more than once, until it is complete.
    expectOldPlotKept("x.svg", QString::fromStdString(drawing), {RLIM_INFINITY, 96 << 20}, "not enough memory");
}

} // namespace
