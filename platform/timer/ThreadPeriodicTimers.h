#pragma once

// Periodic timers on one thread of their own, which starts with the first timer.

#include "platform/timer/PeriodicTimers.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

namespace platform {

class ThreadPeriodicTimers : public PeriodicTimers {
public:
    ThreadPeriodicTimers() = default;
    ~ThreadPeriodicTimers() override;

    const char * name() const override { return "thread"; }
    std::uint32_t set(std::uint32_t periodMs, Callback callback) override;
    void kill(std::uint32_t id) override;

private:
    using Time = std::chrono::steady_clock;
    struct Timer {
        Time::time_point due;
        Time::duration period{};
        Callback callback;
    };

    void loop();

    std::mutex lock_; // guards everything below but the thread
    std::condition_variable changed_;
    std::condition_variable finished_;
    std::map<std::uint32_t, Timer> timers_;
    std::uint32_t last_ = 0;
    std::uint32_t running_ = 0; // id of the timer whose callback runs, 0 for none
    bool ended_ = false;
    std::thread thread_;
};

} // namespace platform
