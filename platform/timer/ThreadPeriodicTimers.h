#pragma once

// Timers on one thread, which starts with the first timer and ends with this object. Any thread may set
// and kill.

#include "platform/thread/Mutex.h"
#include "platform/timer/TimerList.h"

#include <condition_variable>
#include <thread>

namespace platform {

class ThreadPeriodicTimers : public PeriodicTimers {
public:
    ThreadPeriodicTimers() = default;
    ~ThreadPeriodicTimers() override; // waits for a running callback
    ThreadPeriodicTimers(const ThreadPeriodicTimers &) = delete;
    ThreadPeriodicTimers & operator=(const ThreadPeriodicTimers &) = delete;

    const char * name() const override { return "thread"; }
    std::uint32_t set(std::uint32_t periodMs, Callback callback) override;
    void kill(std::uint32_t id) override;

private:
    void run();

    Mutex mutex_;
    std::condition_variable_any changed_;  // the thread has something new to look at
    std::condition_variable_any finished_; // a callback has returned
    TimerList timers_ GUARDED_BY(mutex_);
    std::uint32_t running_ GUARDED_BY(mutex_) = 0; // the timer whose callback runs, or 0
    bool stop_ GUARDED_BY(mutex_) = false;
    std::thread thread_ GUARDED_BY(mutex_);
};

} // namespace platform
