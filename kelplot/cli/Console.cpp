// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/Console.h"

#include <algorithm>
#include <ostream>

namespace kelplot {
namespace {

constexpr std::chrono::milliseconds longWork(1000);
constexpr std::chrono::milliseconds updateInterval(100);

} // namespace

Console::Console(std::ostream& stream, Progress progress, bool warnings, Clock clock)
    : m_stream(stream), m_progress(progress), m_warnings(warnings), m_clock(std::move(clock)) {
}

void Console::error(const std::string& text) {
    write(text);
}

void Console::warning(const std::string& text) {
    if (m_warnings) {
        write("warning: " + text);
    }
}

void Console::note(const std::string& text) {
    if (m_warnings) {
        write("note: " + text);
    }
}

void Console::startWork(const std::string& label) {
    m_label = label;
    m_nextUpdate = m_clock() + (m_progress == Progress::always ? std::chrono::milliseconds(0) : longWork);
}

void Console::showProgress(double fraction) {
    if (m_progress == Progress::never) {
        return;
    }
    const Time now = m_clock();
    if (now < m_nextUpdate) {
        return;
    }
    m_nextUpdate = now + updateInterval;
    const int perCent = static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100.0);
    const std::string line = m_label + ": " + std::to_string(perCent) + " %";
    m_stream << '\r' << line << std::flush;
    m_shownWidth = std::max(m_shownWidth, line.size());
}

void Console::endWork() {
    if (m_shownWidth > 0) {
        m_stream << '\r' << std::string(m_shownWidth, ' ') << '\r' << std::flush;
        m_shownWidth = 0;
    }
}

void Console::write(const std::string& text) {
    endWork();
    m_stream << "kelplot: " << text << std::endl;
}

} // namespace kelplot
