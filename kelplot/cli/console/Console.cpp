// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/console/Console.h"

#include <algorithm>
#include <cmath>
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
    m_entities = 0;
    m_start = m_clock();
    m_nextUpdate = m_start + (m_progress == Progress::always ? std::chrono::milliseconds(0) : longWork);
}

void Console::showProgress(double fraction) {
    if (m_watcher) {
        m_watcher(fraction);
    }
    if (m_progress == Progress::never) {
        return;
    }
    const Time now = m_clock();
    if (now < m_nextUpdate) {
        return;
    }
    m_nextUpdate = now + updateInterval;
    std::string line = progressText(std::clamp(fraction, 0.0, 1.0), now);
    const size_t width = line.size();
    if (width < m_shownWidth) {
        line.append(m_shownWidth - width, ' ');
    }
    m_stream << '\r' << line << std::flush;
    m_shownWidth = std::max(m_shownWidth, width);
}

std::string Console::progressText(double fraction, Time now) const {
    constexpr std::chrono::duration<double> worthTelling(2.0);
    constexpr double leastFraction = 0.05; // to guess the rest from
    std::string text = m_label + ": " + std::to_string(static_cast<int>(fraction * 100.0)) + " %";
    if (m_entities > 0) {
        text += ", " + std::to_string(m_entities) + (m_entities == 1 ? " entity" : " entities");
    }
    const std::chrono::duration<double> spent = now - m_start;
    if (spent >= worthTelling && fraction >= leastFraction) {
        const double left = spent.count() * (1.0 - fraction) / fraction;
        text += ", " + std::to_string(std::lround(std::ceil(left))) + " s left";
    }
    return text;
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
