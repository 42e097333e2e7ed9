#pragma once

// The machine's clock. Ticks come from the coarse monotonic clock: they are asked for very often.

#include "platform/clock/Clock.h"

namespace platform {

class SystemClock : public Clock {
public:
    const char * name() const override { return "system"; }
    std::uint32_t tickCount() override;
    std::int64_t time() override;
    std::int64_t counter() override;
    std::int64_t counterFrequency() const override { return 1000000000; }
    void sleep(std::uint32_t milliseconds) override;
    int processorMHz() override; // as the kernel tells it, kUnknownMHz where it doesn't

    static constexpr int kUnknownMHz = 1000;
};

} // namespace platform
