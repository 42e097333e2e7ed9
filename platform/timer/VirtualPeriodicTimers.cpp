#include "platform/timer/VirtualPeriodicTimers.h"

#include <utility>

namespace platform {

VirtualPeriodicTimers::VirtualPeriodicTimers(VirtualClock & clock) : clock_(clock) { clock_.add(this); }

VirtualPeriodicTimers::~VirtualPeriodicTimers() { clock_.remove(this); }

std::uint32_t VirtualPeriodicTimers::set(std::uint32_t periodMs, Callback callback) {
    return timers_.add(periodMs, std::move(callback), clock_.now());
}

void VirtualPeriodicTimers::kill(std::uint32_t id) { timers_.remove(id); }

std::uint64_t VirtualPeriodicTimers::due() const {
    const TimerList::Timer * next = ringing_ ? nullptr : timers_.next();
    return next ? next->due : VirtualClock::kNever;
}

void VirtualPeriodicTimers::ring(std::uint64_t) {
    const TimerList::Timer * next = timers_.next();
    if (!next) return;
    std::uint32_t id = next->id;
    auto callback = next->callback;
    ringing_ = true;
    (*callback)();
    ringing_ = false;
    timers_.pass(id, clock_.now());
}

} // namespace platform
