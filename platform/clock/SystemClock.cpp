#include "platform/clock/SystemClock.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>

namespace platform {

namespace {

timespec now(clockid_t clock) {
    timespec t{};
    clock_gettime(clock, &t);
    return t;
}

// The number behind the first "name ... :" of a file of the kernel, 0 without one.
double numberOf(const char * file, std::string_view name) {
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        std::size_t colon = line.find(':');
        if (line.starts_with(name) && colon != std::string::npos)
            return std::strtod(line.c_str() + colon + 1, nullptr);
    }
    return 0;
}

int askedMHz() {
    double rate = numberOf("/proc/cpuinfo", "cpu MHz");
    if (rate < 1) { // kinds of processors that don't stand there with a rate
        std::ifstream kilohertz("/sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq");
        if (kilohertz >> rate) rate /= 1000;
    }
    return rate >= 1 && rate < 1e6 ? static_cast<int>(rate) : SystemClock::kUnknownMHz;
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
    static const int rate = askedMHz();
    return rate;
}

} // namespace platform
