#include "platform/audio/ClockedSound.h"
#include "platform/audio/SdlSound.h"
#include "support/InWorld.h"
#include "support/Waves.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

using platform::SoundBuffer;
using platform::SoundFormat;
using test::Frame;
using test::Frames;

class Sound : public test::InWorld {
protected:
    std::unique_ptr<SoundBuffer> buffer(const SoundFormat & format, const std::string & bytes) {
        auto made = world().sound->createBuffer(format, static_cast<int>(bytes.size()));
        SoundBuffer::Region region;
        EXPECT_TRUE(made && made->lock(0, static_cast<int>(bytes.size()), region));
        std::memcpy(region.first, bytes.data(), bytes.size());
        made->unlock(region);
        return made;
    }
    // What was heard since record, up to now.
    Frames heard() {
        world().sound = std::make_unique<platform::ClockedSound>(clock(), "next");
        return test::framesOf(get("out.wav"));
    }
    void SetUp() override { ASSERT_TRUE(world().sound->record(folder() + "/out.wav")); }
};

TEST_F(Sound, FullVolumeInTheCentreArrivesSampleForSample) {
    std::vector<int> wave;
    for (int i = 0; i < 300; i++) wave.push_back(i % 2 ? 32767 - i : -32768 + i);
    auto sound = buffer({1, 22050, 16}, test::words(wave));
    clock().advance(3); // 66 frames
    EXPECT_TRUE(sound->play(false));
    clock().advance(7); // 220 frames in all
    EXPECT_EQ(sound->status(), SoundBuffer::kPlaying);
    EXPECT_EQ(sound->cursor(), (220 - 66) * 2);
    clock().advance(10);
    EXPECT_EQ(sound->status(), 0u);
    EXPECT_EQ(sound->cursor(), 0);
    Frames expected(66);
    for (int v : wave) expected.push_back({v, v});
    expected.resize(441);
    EXPECT_EQ(heard(), expected);
}

// One sound after another under settings, 441 frames each: how each begins.
TEST_F(Sound, SettingsShapeWhatIsHeard) {
    struct Case {
        const char * what;
        SoundFormat format;
        std::string bytes;
        bool looping;
        int volume, pan, frequency;
        Frames expected;
    };
    const std::string ramp = test::words({1000, 2000, 3000}), bytes("\x00\x80\xFF", 3);
    const Case cases[] = {
        {"8 bits", {1, 22050, 8}, bytes, false, 0, 0, 0, {{-32768, -32768}, {0, 0}, {32512, 32512}, {0, 0}}},
        {"stereo", {2, 22050, 16}, test::words({1, 2, 3, 4}), false, 0, 0, 0, {{1, 2}, {3, 4}, {0, 0}}},
        {"half the rate",
         {1, 11025, 16},
         ramp,
         false,
         0,
         0,
         0,
         {{1000, 1000}, {1500, 1500}, {2000, 2000}, {2500, 2500}, {3000, 3000}, {3000, 3000}, {0, 0}}},
        {"twice the rate", {1, 44100, 16}, ramp, false, 0, 0, 0, {{1000, 1000}, {3000, 3000}, {0, 0}}},
        {"a frequency", {1, 44100, 16}, ramp, false, 0, 0, 22050, {{1000, 1000}, {2000, 2000}, {3000, 3000}}},
        {"a loop", {1, 33075, 16}, ramp, true, 0, 0, 0, {{1000, 1000}, {2500, 2500}, {1000, 1000}}},
        {"20 dB less", {1, 22050, 16}, ramp, false, -2000, 0, 0, {{100, 100}, {200, 200}, {300, 300}}},
        {"silence", {1, 22050, 16}, ramp, false, -10000, 0, 0, {{0, 0}, {0, 0}}},
        {"left", {1, 22050, 16}, ramp, false, 0, -2000, 0, {{1000, 100}, {2000, 200}}},
        {"all right", {1, 22050, 16}, ramp, false, 0, 10000, 0, {{0, 1000}, {0, 2000}}},
    };
    Frames expected;
    for (const Case & c : cases) {
        auto sound = buffer(c.format, c.bytes);
        EXPECT_TRUE(sound->setVolume(c.volume) && sound->setPan(c.pan) && sound->setFrequency(c.frequency));
        sound->play(c.looping);
        clock().advance(20); // 441 frames
    }
    Frames all = heard();
    for (std::size_t i = 0; i < std::size(cases); i++) {
        const Case & c = cases[i];
        Frames first(all.begin() + static_cast<std::ptrdiff_t>(i) * 441,
                     all.begin() + static_cast<std::ptrdiff_t>(i * 441 + c.expected.size()));
        for (Frame & f : first)
            for (int & v : f) v += v == -1 ? 1 : 0; // a gain rounds down
        EXPECT_EQ(first, c.expected) << c.what;
    }
}

TEST_F(Sound, ManyVoicesAddUpAndAreCut) {
    std::vector<std::unique_ptr<SoundBuffer>> voices;
    for (int i = 0; i < 40; i++) voices.push_back(buffer({1, 22050, 16}, test::words({i, 1000, -1000})));
    for (auto & each : voices) each->play(false);
    clock().advance(20);
    Frames all = heard();
    EXPECT_EQ(all[0], (Frame{780, 780}));
    EXPECT_EQ(all[1], (Frame{32767, 32767}));
    EXPECT_EQ(all[2], (Frame{-32768, -32768}));
}

TEST_F(Sound, RefusesWhatIsOutOfRange) {
    auto sound = buffer({2, 22050, 16}, std::string(40, '\1'));
    for (int volume : {-10001, 1, 800}) EXPECT_FALSE(sound->setVolume(volume)) << volume;
    for (int pan : {-10001, 10001}) EXPECT_FALSE(sound->setPan(pan)) << pan;
    for (int hertz : {-1, 1, 99, 200001}) EXPECT_FALSE(sound->setFrequency(hertz)) << hertz;
    for (int at : {-1, 40}) EXPECT_FALSE(sound->setCursor(at)) << at;
    SoundBuffer::Region region;
    for (auto [at, bytes] : {std::pair(-1, 4), {40, 4}, {0, 41}, {0, -1}})
        EXPECT_FALSE(sound->lock(at, bytes, region)) << at << " " << bytes;
    EXPECT_TRUE(sound->lock(30, 24, region));
    EXPECT_EQ(region.firstBytes, 10);
    EXPECT_EQ(region.secondBytes, 14);
    // What is written arrives with unlock, what isn't stays; a region counts once.
    std::fill_n(region.first, 10, static_cast<unsigned char>(2));
    std::fill_n(region.second, 14, static_cast<unsigned char>(3));
    SoundBuffer::Region all, again = region;
    sound->unlock(region);
    EXPECT_TRUE(sound->lock(0, 40, all));
    std::string now(reinterpret_cast<char *>(all.first), 40);
    EXPECT_EQ(now, std::string(14, '\3') + std::string(16, '\1') + std::string(10, '\2'));
    sound->unlock(all);
    sound->unlock(again);

    for (const SoundFormat & format :
         {SoundFormat{0, 22050, 16}, {3, 22050, 16}, {1, 22050, 24}, {1, 0, 16}, {1, 200001, 16}})
        EXPECT_EQ(world().sound->createBuffer(format, 48), nullptr);
    for (int bytes : {-4, 0, 3, (1 << 28) + 4})
        EXPECT_EQ(world().sound->createBuffer({2, 22050, 16}, bytes), nullptr) << bytes;
    EXPECT_FALSE(world().sound->record(folder() + "/none/out.wav"));
}

TEST_F(Sound, LostBuffersAreSilentUntilTheyAreRestored) {
    auto * device = static_cast<platform::ClockedSound *>(world().sound.get());
    auto sound = buffer({1, 22050, 8}, std::string(100, '\1'));
    sound->play(true);
    device->lose();
    SoundBuffer::Region region;
    EXPECT_EQ(sound->status(), SoundBuffer::kLost);
    EXPECT_FALSE(sound->play(false) || sound->lock(0, 4, region));
    device->setRestorable(false);
    EXPECT_FALSE(sound->restore());
    device->setRestorable(true);
    EXPECT_TRUE(sound->restore() && sound->lock(0, 4, region));
    EXPECT_EQ(*region.first, 128);
    // A buffer that outlives its device can be asked, and stands still.
    sound->play(true);
    world().sound = nullptr;
    clock().advance(1000);
    EXPECT_EQ(sound->cursor(), 0);
}

// The library's device that writes what it is given to a file.
TEST_F(Sound, ALoudspeakerAsksForItsSamples) {
    const std::string file = folder() + "/heard";
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", file.c_str(), 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
    std::string reason;
    auto device = platform::SdlSound::open(reason);
    ASSERT_TRUE(device) << reason;
    std::vector<int> wave;
    for (int i = 1; i <= 3000; i++) wave.push_back(i * 10);
    const std::string bytes = test::words(wave);
    auto sound = device->createBuffer({1, 22050, 16}, static_cast<int>(bytes.size()));
    SoundBuffer::Region region;
    ASSERT_TRUE(sound->lock(0, sound->size(), region));
    std::memcpy(region.first, bytes.data(), bytes.size());
    sound->unlock(region);
    sound->setPan(SoundBuffer::kLeft);
    ASSERT_TRUE(sound->play(false));
    for (int waits = 0; sound->status() && waits < 2000; waits++)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(sound->status(), 0u);
    device.reset();
    for (const char * name : {"SDL_AUDIODRIVER", "SDL_DISKAUDIOFILE", "SDL_DISKAUDIODELAY"}) unsetenv(name);
    sound->play(true); // outlives its device
    EXPECT_EQ(sound->cursor(), 0);

    std::string heard = get("heard"), expected;
    for (int value : wave) expected += test::words({value, 0});
    EXPECT_NE(heard.find(expected), std::string::npos) << heard.size();
}

} // namespace
