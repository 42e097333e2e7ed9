#pragma once

// The timers that are set and which of them comes next, on a time line of milliseconds that the owner
// reads from its clock. No lock of its own.

#include "platform/timer/PeriodicTimers.h"

#include <memory>
#include <vector>

namespace platform {

class TimerList {
public:
    struct Timer {
        std::uint32_t id = 0;
        std::uint64_t period = 0;
        std::uint64_t due = 0;
        std::shared_ptr<PeriodicTimers::Callback> callback; // shared with the run of it, which may kill it
    };

    std::uint32_t add(std::uint32_t periodMs, PeriodicTimers::Callback callback, std::uint64_t now);
    void remove(std::uint32_t id);
    // The one that is due first, of equals the one set first; null when there is none.
    const Timer * next() const;
    // Moves the timer on to its first moment after now; it may be gone.
    void pass(std::uint32_t id, std::uint64_t now);

private:
    std::vector<Timer> timers_;
    std::uint32_t lastId_ = 0;
};

} // namespace platform
