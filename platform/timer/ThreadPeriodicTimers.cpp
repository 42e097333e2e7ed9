#include "platform/timer/ThreadPeriodicTimers.h"

#include <chrono>
#include <utility>

namespace platform {

namespace {
using std::chrono::milliseconds;
using std::chrono::steady_clock;

std::uint64_t now() {
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}
} // namespace

ThreadPeriodicTimers::~ThreadPeriodicTimers() {
    std::thread thread;
    {
        Lock lock(mutex_);
        stop_ = true;
        thread = std::move(thread_);
    }
    changed_.notify_all();
    if (thread.joinable()) thread.join();
}

std::uint32_t ThreadPeriodicTimers::set(std::uint32_t periodMs, Callback callback) {
    std::uint32_t id;
    {
        Lock lock(mutex_);
        id = timers_.add(periodMs, std::move(callback), now());
        if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
    }
    changed_.notify_all();
    return id;
}

void ThreadPeriodicTimers::kill(std::uint32_t id) {
    Lock lock(mutex_);
    timers_.remove(id);
    if (thread_.get_id() == std::this_thread::get_id()) return; // a callback ends its own or a neighbour's
    while (id != 0 && running_ == id) finished_.wait(mutex_);
}

void ThreadPeriodicTimers::run() {
    Lock lock(mutex_);
    while (!stop_) {
        const TimerList::Timer * next = timers_.next();
        if (!next) {
            changed_.wait(mutex_);
            continue;
        }
        if (next->due > now()) {
            changed_.wait_until(mutex_, steady_clock::time_point(milliseconds(next->due)));
            continue;
        }
        std::uint32_t id = next->id;
        auto callback = next->callback;
        running_ = id;
        mutex_.unlock();
        (*callback)();
        callback.reset(); // what it holds goes before a waiting kill returns
        mutex_.lock();
        running_ = 0;
        timers_.pass(id, now());
        finished_.notify_all();
    }
}

} // namespace platform
