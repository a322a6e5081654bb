// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QObject>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "base/Progress.h"

namespace kelplot {

/// Ends a piece of work that nobody wants any more. No `std::exception`: nothing went wrong, and there is nothing to
/// tell.
struct Cancelled {};

/// Does things in the thread that it was made in.
class ActionReceiver final : public QObject {
public:
    /// For any thread. What is still to be done when this is destroyed is not done any more.
    void post(std::function<void()> action);

protected:
    bool event(QEvent* event) override;
};

/// The one thread in which drawings are read, drawn and written, so that the window never waits.
class PreviewWorker {
public:
    /// Reports its progress, which throws `Cancelled` when the work is to end. Throws nothing else.
    using Work = std::function<void(const Progress& progress)>;

    PreviewWorker();
    /// Ends the work under way and waits for that.
    ~PreviewWorker();
    PreviewWorker(const PreviewWorker&) = delete;
    PreviewWorker& operator=(const PreviewWorker&) = delete;

    /// Does a piece of work after all that was given before.
    void post(Work work);

    /// Does a piece of work when nothing else is left. It takes the place of the one that was given so before, which is
    /// ended if it is under way.
    void draw(Work work);

    /// For the work: does something in the thread that this was made in, and not after its end.
    void tell(std::function<void()> action) { m_receiver.post(std::move(action)); }

    /// For the work: looks at something a few times a second until that returns true.
    void watch(std::function<bool()> look) { m_watched.push_back(std::move(look)); }

private:
    void run();
    bool isWoken() const { return m_stops || !m_posted.empty() || m_drawn; }
    Work next();
    void lookAround();

    ActionReceiver m_receiver;
    std::mutex m_mutex; ///< for what both threads use
    std::condition_variable m_wakes;
    std::deque<Work> m_posted;
    Work m_drawn;                           ///< empty: none waits
    bool m_isDrawing = false;               ///< the work under way may be replaced
    std::atomic<bool> m_isCancelled{false}; ///< the work under way is to end
    bool m_stops = false;
    std::vector<std::function<bool()>> m_watched; ///< of the thread alone
    std::thread m_thread;
};

} // namespace kelplot
