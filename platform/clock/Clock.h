#pragma once

// The one clock that the engine asks. Thread-safe.

#include <cstdint>

namespace platform {

class Clock {
public:
    virtual ~Clock() = default;
    virtual const char * name() const = 0;

    // Milliseconds since some start; wraps after 49 days.
    virtual std::uint32_t tickCount() = 0;
    // Seconds since 1970-01-01 00:00:00 UTC.
    virtual std::int64_t time() = 0;
    // A fine counter and its steps in a second.
    virtual std::int64_t counter() = 0;
    virtual std::int64_t counterFrequency() const = 0;

    virtual void sleep(std::uint32_t milliseconds) = 0;

    // The processor's clock rate, 1 at least.
    virtual int processorMHz() = 0;
};

} // namespace platform
