// The loudspeaker's share: 32 sounds of 22,050 Hz at once, mixed as the device asks for them. Of one core,
// since a second of sound is made in a second.

#include "platform/audio/SoundMix.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

namespace {

constexpr int kSounds = 32, kSeconds = 20, kAsked = 512; // frames at once

class Device : public platform::MixingDevice {
public:
    Device() : Device(std::make_shared<platform::SoundMix>()) {}
    const char * name() const override { return "bench"; }
    bool record(const std::string &) override { return false; }
    void next(std::span<std::int16_t> frames) {
        platform::Lock turn(mix_->mutex);
        mix_->next(frames);
    }

private:
    explicit Device(std::shared_ptr<platform::SoundMix> mix) : MixingDevice(mix), mix_(std::move(mix)) {}
    std::shared_ptr<platform::SoundMix> mix_;
};

void report(const char * what, const platform::SoundFormat & format, double goal) {
    Device device;
    std::mt19937 random(3);
    std::vector<std::unique_ptr<platform::SoundBuffer>> sounds;
    for (int i = 0; i < kSounds; i++) {
        sounds.push_back(device.createBuffer(format, format.frame() * format.rate));
        platform::SoundBuffer::Region region;
        sounds.back()->lock(0, sounds.back()->size(), region);
        for (int at = 0; at < region.firstBytes; at++)
            region.first[at] = static_cast<unsigned char>(random());
        sounds.back()->unlock(region);
        sounds.back()->setVolume(-i * 100);
        sounds.back()->setPan(i * 50 - 800);
        sounds.back()->play(true);
    }
    std::vector<std::int16_t> frames(kAsked * 2);
    double best = 1e9; // of five
    for (int round = 0; round < 5; round++) {
        auto start = std::chrono::steady_clock::now();
        for (int made = 0; made < kSeconds * platform::SoundVoice::kRate; made += kAsked) device.next(frames);
        std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        best = std::min(best, took.count());
    }
    double share = best / kSeconds * 100;
    std::printf("  %-46s %9.2f %% of a core (goal %.0f)%s\n", what, share, goal,
                share > goal ? "  MISSED" : "");
}

} // namespace

int main() {
    std::printf("\n32 sounds at once\n");
    report("22,050 Hz, 16 bits, mono", {1, 22050, 16}, 2);
    report("22,050 Hz, 16 bits, stereo", {2, 22050, 16}, 2);
    report("22,050 Hz, 8 bits, mono", {1, 22050, 8}, 2);
    report("11,025 Hz, 16 bits, mono", {1, 11025, 16}, 2);
}
