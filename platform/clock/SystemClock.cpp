#include "platform/clock/SystemClock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace platform {

namespace {

timespec now(clockid_t clock) {
    timespec t{};
    clock_gettime(clock, &t);
    return t;
}

} // namespace

std::uint32_t SystemClock::tickCount() {
#ifdef CLOCK_MONOTONIC_COARSE
    timespec t = now(CLOCK_MONOTONIC_COARSE);
#else
    timespec t = now(CLOCK_MONOTONIC);
#endif
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(t.tv_sec) * 1000 +
                                      static_cast<std::uint64_t>(t.tv_nsec) / 1000000);
}

std::int64_t SystemClock::time() { return now(CLOCK_REALTIME).tv_sec; }

std::int64_t SystemClock::counter() {
    timespec t = now(CLOCK_MONOTONIC);
    return static_cast<std::int64_t>(t.tv_sec) * 1000000000 + t.tv_nsec;
}

void SystemClock::sleep(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace platform
