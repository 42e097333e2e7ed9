#pragma once

// Time that stands still until somebody moves it: starts at 1000 ms and 2000-01-01 00:00:00 UTC. Sleeping
// moves it. Alarms (the periodic timers, the sound device) fire while it moves, each at its own moment.
// Any thread may ask it. Only the thread that made it moves it and has alarms: a sleep of another one lasts
// as long as it says and leaves this clock alone, or a run would hang on which thread came first.

#include "platform/clock/Clock.h"

#include <atomic>
#include <thread>
#include <vector>

namespace platform {

class VirtualClock : public Clock {
public:
    class Alarm {
    public:
        virtual ~Alarm() = default;
        // The moment of the next call of ring, in milliseconds of now(); kNever for none.
        virtual std::uint64_t due() const = 0;
        // Must leave due() later than it was. A moment that passed while another alarm slept comes late.
        virtual void ring(std::uint64_t now) = 0;
    };
    static constexpr std::uint64_t kNever = ~std::uint64_t{0};
    static constexpr std::uint64_t kStart = 1000;
    static constexpr int kMHz = 1000;
    static constexpr std::int64_t kStartTime = 946684800; // 2000-01-01 00:00:00 UTC

    const char * name() const override { return "virtual"; }
    std::uint32_t tickCount() override { return static_cast<std::uint32_t>(now()); }
    std::int64_t time() override { return kStartTime + static_cast<std::int64_t>((now() - kStart) / 1000); }
    std::int64_t counter() override { return static_cast<std::int64_t>(now()) * 1000; }
    std::int64_t counterFrequency() const override { return 1000000; }
    void sleep(std::uint32_t milliseconds) override;
    int processorMHz() override { return kMHz; }

    std::uint64_t now() const { return now_.load(std::memory_order_relaxed); }
    // Moves the time, ringing every alarm that comes due on the way, in order of their moments and, at the
    // same moment, in order of registration. An alarm that moves the time itself (it sleeps) is fine.
    void advance(std::uint32_t milliseconds);

    void add(Alarm * alarm); // not owned
    void remove(Alarm * alarm);

private:
    std::atomic<std::uint64_t> now_ = kStart;
    std::vector<Alarm *> alarms_;
    std::thread::id owner_ = std::this_thread::get_id();
};

} // namespace platform
