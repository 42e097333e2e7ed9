#include "platform/timer/TimerList.h"

#include <algorithm>
#include <utility>

namespace platform {

std::uint32_t TimerList::add(std::uint32_t periodMs, PeriodicTimers::Callback callback, std::uint64_t now) {
    std::uint64_t period = std::max<std::uint32_t>(periodMs, 1);
    if (++lastId_ == 0) lastId_ = 1;
    timers_.push_back(
        {lastId_, period, now + period, std::make_shared<PeriodicTimers::Callback>(std::move(callback))});
    return lastId_;
}

void TimerList::remove(std::uint32_t id) {
    std::erase_if(timers_, [id](const Timer & timer) { return timer.id == id; });
}

const TimerList::Timer * TimerList::next() const {
    auto first = std::min_element(timers_.begin(), timers_.end(),
                                  [](const Timer & a, const Timer & b) { return a.due < b.due; });
    return first == timers_.end() ? nullptr : &*first;
}

void TimerList::pass(std::uint32_t id, std::uint64_t now) {
    for (Timer & timer : timers_)
        if (timer.id == id && timer.due <= now)
            timer.due += ((now - timer.due) / timer.period + 1) * timer.period;
}

} // namespace platform
