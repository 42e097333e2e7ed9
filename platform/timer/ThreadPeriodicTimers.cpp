#include "platform/timer/ThreadPeriodicTimers.h"

#include <algorithm>
#include <utility>

namespace platform {

ThreadPeriodicTimers::~ThreadPeriodicTimers() {
    {
        std::lock_guard hold(lock_);
        ended_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) thread_.join();
}

std::uint32_t ThreadPeriodicTimers::set(std::uint32_t periodMs, Callback callback) {
    std::lock_guard hold(lock_);
    auto period = std::chrono::milliseconds(std::max(periodMs, 1U));
    timers_[++last_] = {Time::now() + period, period, std::move(callback)};
    if (!thread_.joinable()) thread_ = std::thread(&ThreadPeriodicTimers::loop, this);
    changed_.notify_all();
    return last_;
}

void ThreadPeriodicTimers::kill(std::uint32_t id) {
    std::unique_lock hold(lock_);
    timers_.erase(id);
    changed_.notify_all();
    if (std::this_thread::get_id() == thread_.get_id()) return; // a callback that ends its own timer
    finished_.wait(hold, [&] { return running_ != id; });
}

void ThreadPeriodicTimers::loop() {
    std::unique_lock hold(lock_);
    while (!ended_) {
        auto first = std::ranges::min_element(timers_, {}, [](const auto & each) { return each.second.due; });
        if (first == timers_.end()) {
            changed_.wait(hold);
            continue;
        }
        const Time::time_point due = first->second.due;
        if (Time::now() < due) {
            changed_.wait_until(hold, due);
            continue;
        }
        // A late timer doesn't ring twice at once to make up for it.
        first->second.due = std::max(due + first->second.period, Time::now());
        running_ = first->first;
        Callback callback = first->second.callback;
        hold.unlock();
        callback();
        hold.lock();
        running_ = 0;
        finished_.notify_all();
    }
}

} // namespace platform
