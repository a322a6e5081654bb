// SPDX-License-Identifier: BSD-3-Clause
#include <clocale>
#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTextCodec>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

#include "support/ExpectedWarnings.h"

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

std::unique_ptr<QGuiApplication> makeApplication(int& argc, char** argv) {
#if defined(__SANITIZE_ADDRESS__)
    const __lsan::ScopedDisabler leaksAllowed; // the platform plugin of headless runs never frees its screen
#endif
    return std::make_unique<QGuiApplication>(argc, argv);
}

/// The locale that kelplot sets, whatever that of the run is. The application object has just taken the run's.
void setLocale() {
    std::setlocale(LC_NUMERIC, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8");
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
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const std::unique_ptr<QGuiApplication> application = makeApplication(argc, argv);
    setLocale();
    ::testing::InitGoogleTest(&argc, argv);
    qtHandler = qInstallMessageHandler(failOnWarnings);
    return RUN_ALL_TESTS();
}
