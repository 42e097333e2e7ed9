#pragma once

// The multimedia timer: calls back every so many milliseconds, from a thread of its own (desktop) or while
// the virtual clock moves (headless). One callback runs at a time. The moments of a timer are its start and
// every period from there; of those that pass while another callback runs, it gets one, late.

#include <cstdint>
#include <functional>

namespace platform {

class PeriodicTimers {
public:
    using Callback = std::function<void()>;

    virtual ~PeriodicTimers() = default;
    virtual const char * name() const = 0;

    // Starts a timer; a period of 0 counts as 1. The result is never 0.
    virtual std::uint32_t set(std::uint32_t periodMs, Callback callback) = 0;
    // Ends it. When this returns the callback isn't running any more, unless it is the caller. An unknown id
    // does nothing.
    virtual void kill(std::uint32_t id) = 0;
};

} // namespace platform
