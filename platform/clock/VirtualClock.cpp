#include "platform/clock/VirtualClock.h"

#include <algorithm>
#include <chrono>

namespace platform {

void VirtualClock::sleep(std::uint32_t milliseconds) {
    if (std::this_thread::get_id() == owner_)
        advance(milliseconds);
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void VirtualClock::advance(std::uint32_t milliseconds) {
    const std::uint64_t end = now() + milliseconds;
    for (;;) {
        // Looked for afresh each time: an alarm may add and remove alarms and move the time.
        Alarm * next = nullptr;
        std::uint64_t moment = kNever;
        for (Alarm * alarm : alarms_) {
            std::uint64_t due = alarm->due();
            if (due < moment) {
                next = alarm;
                moment = due;
            }
        }
        if (!next || moment > end) break;
        now_ = std::max(now(), moment);
        next->ring(now());
    }
    now_ = std::max(now(), end);
}

void VirtualClock::add(Alarm * alarm) { alarms_.push_back(alarm); }

void VirtualClock::remove(Alarm * alarm) { std::erase(alarms_, alarm); }

} // namespace platform
