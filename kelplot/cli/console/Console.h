// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>

#include "base/Progress.h"

namespace kelplot {

/// What the user reads while drawings are plotted: messages, and one line of progress that comes and goes.
class Console {
public:
    enum class Progress {
        never,
        whenLong, ///< only for work that takes a while
        always,
    };
    using Time = std::chrono::steady_clock::time_point;
    using Clock = std::function<Time()>;

    /// `stream` is borrowed for the console's life.
    Console(
        std::ostream& stream, Progress progress, bool warnings,
        Clock clock = [] { return std::chrono::steady_clock::now(); });

    void error(const std::string& text);
    void warning(const std::string& text);
    /// Tells what the user may want to know though nothing is wrong.
    void note(const std::string& text);

    /// Begins a piece of work that its label names.
    void startWork(const std::string& label);
    /// Shows the progress of the work, from 0 to 1, if an update is due.
    void showProgress(double fraction);
    /// Has somebody else hear of all progress from here on; what they throw ends the work.
    void watchProgress(kelplot::Progress watcher) { m_watcher = std::move(watcher); }
    /// Sets how many entities the work is about, which the progress tells from here on.
    void setEntities(size_t count) { m_entities = count; }
    /// Removes the progress line.
    void endWork();

private:
    void write(const std::string& text);

    std::ostream& m_stream;
    Progress m_progress;
    bool m_warnings;
    Clock m_clock;
    kelplot::Progress m_watcher;
    std::string progressText(double fraction, Time now) const;

    std::string m_label;
    size_t m_entities = 0; ///< 0: not known
    Time m_start;
    Time m_nextUpdate;
    size_t m_shownWidth = 0;
};

} // namespace kelplot
