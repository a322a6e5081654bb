// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "cli/Console.h"

namespace kelplot {
namespace {

TEST(Console, ShowsProgressOfLongWorkOnOneLineThatMessagesEnd) {
    using Progress = Console::Progress;
    const struct {
        Progress progress;
        bool warnings;
        const char* written; ///< with a bar after each look at the progress
    } rows[] = {
        {Progress::whenLong, true,
         "|\rp: 50 %||\rp: 70 %|\r       \rkelplot: warning: w\n\rp: 100 %|\r        \rkelplot: e\n"},
        {Progress::always, true,
         "\rp: 40 %||\rp: 60 %||\r       \rkelplot: warning: w\n\rp: 100 %|\r        \rkelplot: e\n"},
        {Progress::never, false, "|||||kelplot: e\n"},
    };
    for (const auto& row : rows) {
        std::ostringstream stream;
        Console::Time now{};
        Console console(stream, row.progress, row.warnings, [&] { return now; });
        const auto lookAfter = [&](int milliseconds, double progress) {
            now += std::chrono::milliseconds(milliseconds);
            console.showProgress(progress);
            stream << '|';
        };
        console.startWork("p");
        lookAfter(999, 0.4);
        lookAfter(1, 0.5);
        lookAfter(99, 0.6);
        lookAfter(1, 0.7);
        console.warning("w");
        lookAfter(100, 1.5);
        console.endWork();
        console.endWork();
        console.error("e");
        EXPECT_EQ(stream.str(), row.written);
    }
}

} // namespace
} // namespace kelplot
