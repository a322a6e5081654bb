// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

#include "cli/ProgramFrame.h"

namespace {

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
#if defined(__SANITIZE_ADDRESS__)
    const __lsan::ScopedDisabler leaksAllowed; // the platform plugin of headless runs never frees its screen
#endif
    return std::make_unique<QApplication>(argc, argv);
}

} // namespace

/// In place of the test kit's: windows need an application of their own kind.
int main(int argc, char** argv) {
    kelplot::prepareProgram();
    const std::unique_ptr<QApplication> application = makeApplication(argc, argv);
    kelplot::useNeutralLocale();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
