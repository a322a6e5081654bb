// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "cli/console/Console.h"

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

TEST(Console, TellsTheEntitiesAndTheTimeLeft) {
    std::ostringstream stream;
    Console::Time now{};
    Console console(stream, Console::Progress::always, true, [&] { return now; });
    const auto shownAfter = [&](int seconds, double progress) {
        now += std::chrono::seconds(seconds);
        stream.str({});
        console.showProgress(progress);
        return stream.str();
    };
    console.startWork("p");
    EXPECT_EQ(shownAfter(1, 0.5), "\rp: 50 %");
    console.setEntities(2000);
    EXPECT_EQ(shownAfter(1, 0.04), "\rp: 4 %, 2000 entities");
    EXPECT_EQ(shownAfter(7, 0.75), "\rp: 75 %, 2000 entities, 3 s left");
    EXPECT_EQ(shownAfter(11, 1.0), "\rp: 100 %, 2000 entities, 0 s left");
    console.endWork();
    console.startWork("q");
    console.setEntities(1);
    EXPECT_EQ(shownAfter(1, 0.5), "\rq: 50 %, 1 entity");
}

} // namespace
} // namespace kelplot
