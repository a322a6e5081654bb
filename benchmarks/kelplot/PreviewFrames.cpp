// SPDX-License-Identifier: GPL-2.0-or-later
// How long the preview takes for a frame while a page is moved and zoomed. Prints, as JSON, the median, the time that
// 95 of 100 frames keep to and the longest one, and how long the page then takes to be drawn afresh: milliseconds all.
#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>
#include <functional>
#include <iostream>
#include <vector>

#include "cli/ProgramFrame.h"
#include "cli/options/CommandLine.h"
#include "preview/PreviewWindow.h"

namespace {

using kelplot::PreviewWindow;

double millisecondsUntilSettled(PreviewWindow& window) {
    QElapsedTimer time;
    time.start();
    while (!window.isSettled()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    return static_cast<double>(time.nsecsElapsed()) / 1e6;
}

/// Moves the page step by step and has every step painted.
QJsonObject measure(const char* page, PreviewWindow& window, const std::function<void(int)>& step) {
    constexpr int frames = 240;
    std::vector<double> times;
    for (int i = 0; i < frames; ++i) {
        QElapsedTimer time;
        time.start();
        step(i);
        window.view().repaint();
        times.push_back(static_cast<double>(time.nsecsElapsed()) / 1e6);
        QApplication::processEvents();
    }
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) {
        return times[static_cast<size_t>(share * (frames - 1))];
    };
    return {{"page", page},
            {"median", at(0.5)},
            {"most", at(0.95)},
            {"worst", at(1.0)},
            {"settled", millisecondsUntilSettled(window)}};
}

} // namespace

int main(int argc, char** argv) {
    kelplot::prepareProgram();
    int count = 1;
    const QApplication application(count, argv);
    kelplot::useNeutralLocale();
    return kelplot::statusOf([&] {
        PreviewWindow window(kelplot::requestFromArguments(kelplot::argumentsOf(argc, argv)));
        window.resize(1900, 1000);
        window.show();
        millisecondsUntilSettled(window);
        kelplot::PageView& view = window.view();
        const auto circle = [&](int i) {
            view.pan({static_cast<int>(12 * std::cos(i / 10.0)), static_cast<int>(12 * std::sin(i / 10.0))});
        };
        const auto breathe = [&](int i) {
            view.zoomBy(i % 80 < 40 ? 1.04 : 1.0 / 1.04);
        };
        QJsonArray moves;
        moves.append(measure("whole, moved", window, circle));
        moves.append(measure("whole, zoomed", window, breathe));
        view.zoomBy(8.0);
        millisecondsUntilSettled(window);
        moves.append(measure("eight times as large, moved", window, circle));
        moves.append(measure("eight times as large, zoomed", window, breathe));
        std::cout << QJsonDocument(moves).toJson().constData();
        return window.status();
    });
}
