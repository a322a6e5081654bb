#include <gtest/gtest.h>

#include <QGuiApplication>

// The platform plugin of headless runs never frees its screen. Telling it apart takes whole call stacks.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizers look for these names
extern "C" const char* __asan_default_options() {
    return "fast_unwind_on_malloc=0";
}
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libqoffscreen.so\n";
}
// NOLINTEND(bugprone-reserved-identifier)

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
