// SPDX-License-Identifier: BSD-3-Clause
#include <utility>

#include <gtest/gtest.h>

#include <QGuiApplication>

#include "support/ExpectedWarnings.h"

// The platform plugin of headless runs never frees its screen. Telling it apart takes whole call stacks.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizers look for these names
extern "C" const char* __asan_default_options() {
    return "fast_unwind_on_malloc=0";
}
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libqoffscreen.so\n";
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

QtMessageHandler qtHandler = nullptr;
std::string expectedStart; ///< empty: no warning is expected
int expectedCount = 0;

// What Qt warns about is a fault of the code under test that no return value shows.
void failOnWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const std::string text = message.toStdString();
    if (type != QtWarningMsg && type != QtCriticalMsg) {
        qtHandler(type, context, message);
    } else if (!expectedStart.empty() && text.compare(0, expectedStart.size(), expectedStart) == 0) {
        ++expectedCount;
    } else {
        ADD_FAILURE() << "Qt warns: " << text;
    }
}

} // namespace

ExpectedWarnings::ExpectedWarnings(std::string start) {
    expectedStart = std::move(start);
    expectedCount = 0;
}

ExpectedWarnings::~ExpectedWarnings() {
    EXPECT_GT(expectedCount, 0) << "no warning: " << expectedStart;
    expectedStart.clear();
}

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    qtHandler = qInstallMessageHandler(failOnWarnings);
    return RUN_ALL_TESTS();
}
