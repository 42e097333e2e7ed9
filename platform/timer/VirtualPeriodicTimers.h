#pragma once

// Periodic timers that ring while the virtual clock moves, each at its own moment.

#include "platform/clock/VirtualClock.h"
#include "platform/timer/PeriodicTimers.h"

#include <map>

namespace platform {

class VirtualPeriodicTimers : public PeriodicTimers, private VirtualClock::Alarm {
public:
    explicit VirtualPeriodicTimers(VirtualClock & clock) : clock_(clock) { clock_.add(this); }
    ~VirtualPeriodicTimers() override { clock_.remove(this); }

    const char * name() const override { return "virtual"; }
    std::uint32_t set(std::uint32_t periodMs, Callback callback) override;
    void kill(std::uint32_t id) override { timers_.erase(id); }

private:
    struct Timer {
        std::uint64_t due = 0;
        std::uint32_t period = 0;
        Callback callback;
    };

    std::uint64_t due() const override;
    void ring(std::uint64_t now) override;

    VirtualClock & clock_;
    std::map<std::uint32_t, Timer> timers_; // by id, which grows
    std::uint32_t last_ = 0;
};

} // namespace platform
