#include "platform/clock/SystemClock.h"

#include <chrono>
#include <ctime>
#include <fstream>
#include <string>
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

int SystemClock::processorMHz() {
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);)
        if (line.starts_with("cpu MHz"))
            if (int rate = std::atoi(line.c_str() + line.find(':') + 1); rate > 0) return rate;
    return 1; // the machine doesn't tell
}

} // namespace platform
