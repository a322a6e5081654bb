// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "cli/Console.h"

namespace kelplot {
namespace {

/// A console with a clock that goes by hand.
class ConsoleTest : public ::testing::Test {
protected:
    Console console(Console::Progress progress, bool warnings = true) {
        return Console(stream, progress, warnings, [this] { return now; });
    }

    std::string taken() {
        std::string text = stream.str();
        stream.str({});
        return text;
    }

    std::ostringstream stream;
    Console::Time now{};
};

TEST_F(ConsoleTest, LongWorkUpdatesOneLineTenTimesASecondAndErasesIt) {
    Console c = console(Console::Progress::whenLong);
    c.startWork("p");
    now += std::chrono::milliseconds(999);
    c.showProgress(0.4);
    EXPECT_EQ(taken(), "") << "short work shows none";
    now += std::chrono::milliseconds(1);
    c.showProgress(0.5);
    EXPECT_EQ(taken(), "\rp: 50 %");
    now += std::chrono::milliseconds(99);
    c.showProgress(0.6);
    EXPECT_EQ(taken(), "");
    now += std::chrono::milliseconds(1);
    c.showProgress(0.7);
    EXPECT_EQ(taken(), "\rp: 70 %");
    c.endWork();
    EXPECT_EQ(taken(), "\r       \r");
    c.endWork();
    EXPECT_EQ(taken(), "") << "what is erased stays erased";
}

TEST_F(ConsoleTest, AMessageEndsTheLineOfProgress) {
    Console c = console(Console::Progress::always);
    c.startWork("p");
    c.showProgress(0.0);
    c.warning("w");
    EXPECT_EQ(taken(), "\rp: 0 %\r      \rkelplot: warning: w\n");
    now += std::chrono::seconds(1);
    c.showProgress(1.5);
    EXPECT_EQ(taken(), "\rp: 100 %");
}

TEST_F(ConsoleTest, QuietKeepsErrorsOnly) {
    Console c = console(Console::Progress::never, false);
    c.startWork("p");
    now += std::chrono::hours(1);
    c.showProgress(0.5);
    c.warning("w");
    c.error("e");
    EXPECT_EQ(taken(), "kelplot: e\n");
}

} // namespace
} // namespace kelplot
