#include "platform/clock/VirtualClock.h"

#include <algorithm>

namespace platform {

void VirtualClock::advance(std::uint32_t milliseconds) {
    const std::uint64_t target = now_ + milliseconds;
    for (;;) {
        auto first = std::ranges::min_element(alarms_, {}, &Alarm::due);
        if (first == alarms_.end() || (*first)->due() > target) break;
        now_ = std::max(now_, (*first)->due());
        (*first)->ring(now_);
    }
    now_ = std::max(now_, target);
}

void VirtualClock::add(Alarm * alarm) { alarms_.push_back(alarm); }

void VirtualClock::remove(Alarm * alarm) { std::erase(alarms_, alarm); }

} // namespace platform
