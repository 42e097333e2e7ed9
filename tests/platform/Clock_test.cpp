#include "platform/clock/Clock.h"

#include "platform/clock/SystemClock.h"
#include "platform/clock/VirtualClock.h"

#include <chrono>
#include <ctime>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

namespace {

using platform::VirtualClock;

TEST(VirtualClock, Readings) {
    VirtualClock clock;
    struct {
        std::uint32_t sleep, tick;
        std::int64_t time, counter;
    } const cases[] = {
        {0, 1000, 946684800, 1000000},
        {999, 1999, 946684800, 1999000},
        {1, 2000, 946684801, 2000000},
        {0xFFFFFFFF, 1999, 946684801 + 4294967, 4294969295000}, // the ticks wrap, the time doesn't
    };
    for (const auto & c : cases) {
        clock.sleep(c.sleep);
        EXPECT_EQ(clock.tickCount(), c.tick);
        EXPECT_EQ(clock.time(), c.time);
        EXPECT_EQ(clock.counter(), c.counter);
    }
    EXPECT_EQ(clock.counterFrequency(), 1000000);
}

// Rings every period and writes "NAME@MOMENT ".
struct Bell : VirtualClock::Alarm {
    Bell(VirtualClock & clock, std::string & log, char name, std::uint64_t period)
        : clock(clock), log(log), name(name), period(period), next(clock.now() + period) {
        clock.add(this);
    }
    ~Bell() override { clock.remove(this); }
    std::uint64_t due() const override { return next; }
    void ring(std::uint64_t now) override {
        EXPECT_EQ(now, clock.now());
        log += name + ("@" + std::to_string(now - VirtualClock::kStart)) + " ";
        next = period ? next + period : VirtualClock::kNever;
        if (also) also();
    }
    VirtualClock & clock;
    std::string & log;
    char name;
    std::uint64_t period, next;
    std::function<void()> also;
};

TEST(VirtualClock, AlarmsRingAtTheirMoments) {
    VirtualClock clock;
    std::string log;
    Bell a(clock, log, 'a', 20), b(clock, log, 'b', 10);
    clock.advance(40);
    EXPECT_EQ(log, "b@10 a@20 b@20 b@30 a@40 b@40 ");
    EXPECT_EQ(clock.now(), VirtualClock::kStart + 40);
    log.clear();
    clock.advance(0);
    clock.advance(9);
    EXPECT_EQ(log, "");
    clock.advance(1);
    EXPECT_EQ(log, "b@50 ");
}

TEST(VirtualClock, AlarmsMaySleepComeAndGo) {
    VirtualClock clock;
    std::string log;
    Bell a(clock, log, 'a', 10), b(clock, log, 'b', 15);
    std::unique_ptr<Bell> c;
    a.also = [&] {
        if (log == "a@10 ") clock.sleep(12); // b rings meanwhile, then a again
        if (clock.now() >= VirtualClock::kStart + 30 && !c) c = std::make_unique<Bell>(clock, log, 'c', 5);
        if (clock.now() >= VirtualClock::kStart + 40) c.reset();
    };
    clock.advance(45);
    EXPECT_EQ(log, "a@10 b@15 a@20 a@30 b@30 c@35 a@40 b@45 ");
    log.clear();
    b.period = 0;
    a.also = [&] { clock.sleep(100); }; // past the end of what was asked: that long it lasts
    a.next = clock.now() + 1;
    a.period = 1000;
    clock.advance(5);
    EXPECT_EQ(clock.now(), VirtualClock::kStart + 146);
}

// Workers may ask the clock and sleep, and don't disturb a run by it.
TEST(VirtualClock, OtherThreadsDontMoveIt) {
    VirtualClock clock;
    std::string log;
    Bell bell(clock, log, 'a', 1);
    std::uint32_t seen = 0;
    std::thread worker([&] {
        clock.sleep(3);
        seen = clock.tickCount();
    });
    worker.join();
    EXPECT_EQ(seen, 1000u);
    EXPECT_EQ(clock.tickCount(), 1000u);
    EXPECT_EQ(log, "");
}

TEST(SystemClock, GoesOn) {
    platform::SystemClock clock;
    const auto tick = clock.tickCount();
    const auto counter = clock.counter();
    const auto start = std::chrono::steady_clock::now();
    clock.sleep(30);
    const double truly = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_GE(truly, 0.030);
    EXPECT_NEAR(static_cast<double>(clock.counter() - counter) /
                    static_cast<double>(clock.counterFrequency()),
                truly, 0.02);
    EXPECT_NEAR(clock.tickCount() - tick, truly * 1000, 21); // its steps are coarse
    EXPECT_NEAR(static_cast<double>(clock.time()), static_cast<double>(std::time(nullptr)), 1.0);
}

} // namespace
