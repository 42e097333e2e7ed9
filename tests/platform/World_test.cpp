#include "platform/World.h"

#include "platform/clock/VirtualClock.h"
#include "support/InWorld.h"

#include <algorithm>

namespace {

class HeadlessWorld : public test::InWorld {};

TEST_F(HeadlessWorld, IsComplete) {
    EXPECT_EQ(&platform::world(), &world());
    EXPECT_EQ(world().describe(), "clock: virtual\ntimers: virtual\nrandom: seed 1\nfiles: machine\n"
                                  "locale: fixed\ndialogs: lines on standard output\nmodules: "
                                  "system\ndebugger: standard error\ndisplay: memory\nmouse: scripted\n"
                                  "keyboard: scripted\njoysticks: scripted\nsound: memory\n");
    EXPECT_EQ(world().files->currentDirectory(), windowsFolder());
    EXPECT_EQ(world().locale->languageCode(), "0409");

    std::string expected = "C:" + folder();
    std::replace(expected.begin(), expected.end(), '/', '\\');
    EXPECT_EQ(windowsFolder(), expected);
}

TEST(World, DesktopTakesTheMachine) {
    platform::Options options;
    options.seed = 0;
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    auto world = platform::desktop(options);
    EXPECT_EQ(world->virtualClock, nullptr);
    EXPECT_GT(world->random->hostSeed(), 1u);
    EXPECT_EQ(world->describe(),
              "clock: system\ntimers: thread\nrandom: seed " + std::to_string(world->random->hostSeed()) +
                  "\nfiles: machine\nlocale: system\ndialogs: SDL\nmodules: system\ndebugger: "
                  "standard error\ndisplay: SDL\nmouse: SDL\n"
                  "keyboard: SDL\njoysticks: SDL\nsound: SDL\n");

    // A machine without a loudspeaker: silence that keeps the time.
    world.reset();
    setenv("SDL_AUDIODRIVER", "none-of-that-name", 1);
    world = platform::desktop(options);
    unsetenv("SDL_AUDIODRIVER");
    EXPECT_STREQ(world->sound->name(), "silent");
    auto sound = world->sound->createBuffer({1, 22050, 16}, 2);
    ASSERT_TRUE(sound->play(false));
    world->clock->sleep(20);
    EXPECT_EQ(sound->status(), 0u);
}

// A process runs one world after another; nothing of the first is left in the second.
TEST(World, TheSecondStartsFresh) {
    struct Outcome {
        std::uint32_t tick;
        std::int64_t time;
        int rings, number;
        std::string folder;
        bool operator==(const Outcome &) const = default;
    };
    auto run = [] {
        platform::Options options;
        options.currentDirectory = "/";
        auto world = platform::headless(options);
        platform::Installed installed(*world);
        Outcome outcome{};
        outcome.folder = platform::world().files->currentDirectory();
        platform::world().files->changeDirectory("usr");
        platform::world().timers->set(10, [&outcome] { outcome.rings++; });
        platform::world().clock->sleep(2345);
        outcome.tick = platform::world().clock->tickCount();
        outcome.time = platform::world().clock->time();
        outcome.number = platform::world().random->next();
        return outcome; // with its timer still set
    };
    const Outcome first = run();
    EXPECT_EQ(first, (Outcome{3345, 946684802, 234, 41, "C:\\"}));
    EXPECT_EQ(run(), first);
}

TEST(World, InstallsNest) {
    auto outer = platform::headless(), inner = platform::headless();
    platform::Installed first(*outer);
    {
        platform::Installed second(*inner);
        EXPECT_EQ(&platform::world(), inner.get());
    }
    EXPECT_EQ(&platform::world(), outer.get());
}

} // namespace
