// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PreviewWorker.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>

namespace kelplot {
namespace {

struct ActionEvent final : QEvent {
    static constexpr Type kind = User;

    explicit ActionEvent(std::function<void()> todo) : QEvent(kind), action(std::move(todo)) {}

    std::function<void()> action;
};

} // namespace

void ActionReceiver::post(std::function<void()> action) {
    QCoreApplication::postEvent(this, new ActionEvent(std::move(action)));
}

bool ActionReceiver::event(QEvent* event) {
    if (event->type() != ActionEvent::kind) {
        return QObject::event(event);
    }
    static_cast<ActionEvent*>(event)->action();
    return true;
}

PreviewWorker::PreviewWorker() : m_thread([this] { run(); }) {
}

PreviewWorker::~PreviewWorker() {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stops = true;
        m_isCancelled = true;
    }
    m_wakes.notify_one();
    m_thread.join();
}

void PreviewWorker::post(Work work) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_posted.push_back(std::move(work));
    }
    m_wakes.notify_one();
}

void PreviewWorker::draw(Work work) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_drawn = std::move(work);
        m_isCancelled = m_isCancelled || m_isDrawing;
    }
    m_wakes.notify_one();
}

/// Waits for work; empty when it is time to look at what is watched, or to stop.
PreviewWorker::Work PreviewWorker::next() {
    constexpr std::chrono::milliseconds betweenLooks(300);
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_watched.empty()) {
        m_wakes.wait(lock, [this] { return isWoken(); });
    } else {
        m_wakes.wait_for(lock, betweenLooks, [this] { return isWoken(); });
    }
    Work work;
    if (m_stops) {
        return work;
    }
    m_isDrawing = m_posted.empty();
    if (m_isDrawing) {
        work.swap(m_drawn);
    } else {
        work = std::move(m_posted.front());
        m_posted.pop_front();
    }
    m_isCancelled = false;
    return work;
}

void PreviewWorker::lookAround() {
    m_watched.erase(std::remove_if(m_watched.begin(), m_watched.end(), [](const auto& look) { return look(); }),
                    m_watched.end());
}

void PreviewWorker::run() {
    const Progress progress = [this](double) {
        if (m_isCancelled) {
            throw Cancelled();
        }
    };
    const auto stops = [this] {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_stops;
    };
    while (!stops()) {
        const Work work = next();
        try {
            if (work) {
                work(progress);
            } else if (!stops()) {
                lookAround();
            }
        } catch (const Cancelled&) { // whoever ended it has given new work, or none
        }
    }
}

} // namespace kelplot
