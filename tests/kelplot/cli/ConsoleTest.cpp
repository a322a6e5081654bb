// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "cli/Console.h"

namespace kelplot {
namespace {

// The steps of a piece of work, and what the console writes at each.
TEST(Console, ShowsProgressOfLongWorkOnOneLineThatMessagesEnd) {
    using Progress = Console::Progress;
    const auto steps = [](Console& c) {
        return std::vector<std::pair<int, std::function<void()>>>{{0,
                                                                   [&] {
                                                                       c.startWork("p");
                                                                   }},
                                                                  {999,
                                                                   [&] {
                                                                       c.showProgress(0.4);
                                                                   }},
                                                                  {1,
                                                                   [&] {
                                                                       c.showProgress(0.5);
                                                                   }},
                                                                  {99,
                                                                   [&] {
                                                                       c.showProgress(0.6);
                                                                   }},
                                                                  {1,
                                                                   [&] {
                                                                       c.showProgress(0.7);
                                                                   }},
                                                                  {0,
                                                                   [&] {
                                                                       c.warning("w");
                                                                   }},
                                                                  {100,
                                                                   [&] {
                                                                       c.showProgress(1.5);
                                                                   }},
                                                                  {0,
                                                                   [&] {
                                                                       c.endWork();
                                                                   }},
                                                                  {0,
                                                                   [&] {
                                                                       c.endWork();
                                                                   }},
                                                                  {0, [&] {
                                                                       c.error("e");
                                                                   }}};
    };
    const struct {
        Progress progress;
        bool warnings;
        const char* written; ///< with a bar behind each step
    } rows[] = {
        {Progress::whenLong, true,
         "||\rp: 50 %||\rp: 70 %|\r       \rkelplot: warning: w\n|\rp: 100 %|\r        \r||kelplot: e\n|"},
        {Progress::always, true,
         "|\rp: 40 %||\rp: 60 %||\r       \rkelplot: warning: w\n|\rp: 100 %|\r        \r||kelplot: e\n|"},
        {Progress::never, false, "|||||||||kelplot: e\n|"},
    };
    for (const auto& row : rows) {
        std::ostringstream stream;
        Console::Time now{};
        Console console(stream, row.progress, row.warnings, [&] { return now; });
        for (const auto& [milliseconds, step] : steps(console)) {
            now += std::chrono::milliseconds(milliseconds);
            step();
            stream << '|';
        }
        EXPECT_EQ(stream.str(), row.written);
    }
}

} // namespace
} // namespace kelplot
