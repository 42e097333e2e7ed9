#include "platform/timer/VirtualPeriodicTimers.h"

#include <algorithm>
#include <utility>

namespace platform {

std::uint32_t VirtualPeriodicTimers::set(std::uint32_t periodMs, Callback callback) {
    std::uint32_t period = std::max(periodMs, 1U);
    timers_[++last_] = {clock_.now() + period, period, std::move(callback)};
    return last_;
}

std::uint64_t VirtualPeriodicTimers::due() const {
    std::uint64_t first = VirtualClock::kNever;
    for (const auto & [id, timer] : timers_) first = std::min(first, timer.due);
    return first;
}

void VirtualPeriodicTimers::ring(std::uint64_t now) {
    auto timer = std::ranges::min_element(timers_, {}, [](const auto & each) { return each.second.due; });
    timer->second.due = now + timer->second.period;
    Callback callback = timer->second.callback; // it may end its own timer
    callback();
}

} // namespace platform
