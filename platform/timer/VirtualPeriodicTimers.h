#pragma once

// Timers that fire while the virtual clock moves. The clock's thread only.

#include "platform/clock/VirtualClock.h"
#include "platform/timer/TimerList.h"

namespace platform {

class VirtualPeriodicTimers : public PeriodicTimers, private VirtualClock::Alarm {
public:
    explicit VirtualPeriodicTimers(VirtualClock & clock); // outlives this
    ~VirtualPeriodicTimers() override;
    VirtualPeriodicTimers(const VirtualPeriodicTimers &) = delete;
    VirtualPeriodicTimers & operator=(const VirtualPeriodicTimers &) = delete;

    const char * name() const override { return "virtual"; }
    std::uint32_t set(std::uint32_t periodMs, Callback callback) override;
    void kill(std::uint32_t id) override;

private:
    std::uint64_t due() const override;
    void ring(std::uint64_t now) override;

    VirtualClock & clock_;
    TimerList timers_;
    bool ringing_ = false; // a callback that sleeps calls no other
};

} // namespace platform
