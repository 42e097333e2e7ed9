#include "platform/timer/PeriodicTimers.h"

#include "platform/timer/ThreadPeriodicTimers.h"
#include "platform/timer/VirtualPeriodicTimers.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <utility>

namespace {

using platform::VirtualClock;

TEST(VirtualPeriodicTimers, SeveralEachAtItsMoment) {
    VirtualClock clock;
    platform::VirtualPeriodicTimers timers(clock);
    std::string log;
    auto note = [&](const char * name) {
        return [&, name] { log += name + std::to_string(clock.now() - VirtualClock::kStart) + " "; };
    };
    auto a = timers.set(20, note("a")), b = timers.set(10, note("b"));
    EXPECT_NE(a, 0u);
    EXPECT_NE(a, b);
    clock.advance(45);
    EXPECT_EQ(log, "b10 a20 b20 b30 a40 b40 ");
    log.clear();
    timers.kill(b);
    timers.kill(b);
    timers.kill(0);
    timers.kill(999);
    clock.advance(20);
    EXPECT_EQ(log, "a60 ");
    timers.kill(a);
    log.clear();
    timers.set(0, note("c")); // as 1
    clock.advance(3);
    EXPECT_EQ(log, "c66 c67 c68 ");
}

TEST(VirtualPeriodicTimers, CallbacksMaySetKillAndSleep) {
    VirtualClock clock;
    platform::VirtualPeriodicTimers timers(clock);
    std::string log;
    auto at = [&] { return std::to_string(clock.now() - VirtualClock::kStart) + " "; };
    std::uint32_t self = 0;
    self = timers.set(10, [&, kept = std::string("kept")] {
        timers.kill(self);
        timers.set(10, [&] { log += "new" + at(); });
        log += kept + at(); // what the callback holds lives on until it returns
    });
    clock.advance(35);
    EXPECT_EQ(log, "kept10 new20 new30 ");

    log.clear();
    VirtualClock other;
    platform::VirtualPeriodicTimers late(other);
    auto now = [&] { return std::to_string(other.now() - VirtualClock::kStart) + " "; };
    bool slept = false;
    late.set(10, [&] {
        log += "slow" + now();
        if (!std::exchange(slept, true)) other.sleep(25);
        log += "done" + now();
    });
    late.set(15, [&] { log += "quick" + now(); });
    other.advance(50);
    // One callback at a time: what came due during the sleep comes once, late; then the old moments again.
    EXPECT_EQ(log, "slow10 done35 quick35 slow40 done40 quick45 slow50 done50 ");
}

// Waits until it holds, for as long as a busy machine may need.
bool comesTrue(const std::function<bool()> & what) {
    for (int i = 0; i < 10000 && !what(); i++) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return what();
}

TEST(ThreadPeriodicTimers, RingUntilKilled) {
    platform::ThreadPeriodicTimers timers;
    std::atomic<int> quick = 0, slow = 0;
    std::atomic<bool> inside = false;
    auto a = timers.set(1, [&] { quick++; });
    auto b = timers.set(2, [&] {
        inside = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        slow++;
        inside = false;
    });
    EXPECT_NE(a, b);
    EXPECT_TRUE(comesTrue([&] { return quick > 3 && slow > 1; }));
    EXPECT_TRUE(comesTrue([&] { return inside.load(); }));
    timers.kill(b); // waits for the one that runs
    EXPECT_FALSE(inside);
    const int before = slow, others = quick;
    EXPECT_TRUE(comesTrue([&] { return quick > others + 3; }));
    EXPECT_EQ(slow, before);
    timers.kill(a);
    timers.kill(12345);
}

TEST(ThreadPeriodicTimers, CallbacksMaySetAndKill) {
    platform::ThreadPeriodicTimers timers;
    std::atomic<int> first = 0, second = 0;
    std::atomic<std::uint32_t> self = 0;
    self = timers.set(5, [&] {
        if (self == 0) return; // rang before set returned
        timers.kill(self);
        first++;
        timers.set(1, [&] { second++; });
    });
    EXPECT_TRUE(comesTrue([&] { return second > 3; }));
    EXPECT_EQ(first, 1);
} // ends with a timer set

} // namespace
