#include "platform/audio/ClockedSound.h"

#include "platform/audio/WavRecorder.h"

#include <algorithm>
#include <utility>

namespace platform {

struct ClockedSound::Mix : public SoundMix {
    explicit Mix(Clock & of) : clock(&of), last(of.tickCount()) {}

    void catchUp() override REQUIRES(mutex);

    Clock * clock GUARDED_BY(mutex); // null once the device is gone
    std::uint32_t last GUARDED_BY(mutex);
    std::uint64_t elapsed GUARDED_BY(mutex) = 0; // milliseconds
    std::uint64_t mixed GUARDED_BY(mutex) = 0;   // frames
    std::unique_ptr<WavRecorder> recorder GUARDED_BY(mutex);
    std::vector<std::int16_t> heard GUARDED_BY(mutex);
};

void ClockedSound::Mix::catchUp() {
    if (!clock) return;
    elapsed += static_cast<std::uint32_t>(clock->tickCount() - std::exchange(last, clock->tickCount()));
    std::uint64_t frames = elapsed * SoundVoice::kRate / 1000 - mixed;
    mixed += frames;
    if (!recorder) {
        pass(frames);
        return;
    }
    constexpr std::uint64_t kMost = 2048; // frames at once
    for (; frames > 0; frames -= heard.size() / 2) {
        heard.resize(static_cast<std::size_t>(std::min(frames, kMost)) * 2);
        next(heard);
        recorder->write(heard);
    }
}

ClockedSound::ClockedSound(Clock & clock, const char * name)
    : ClockedSound(std::make_shared<Mix>(clock), name) {}

ClockedSound::ClockedSound(std::shared_ptr<Mix> mix, const char * name)
    : MixingDevice(mix), name_(name), mix_(std::move(mix)) {}

ClockedSound::~ClockedSound() {
    Lock turn(mix_->mutex);
    mix_->catchUp();
    mix_->recorder.reset();
    mix_->clock = nullptr;
}

bool ClockedSound::record(const std::string & file) {
    std::unique_ptr<WavRecorder> recorder = WavRecorder::make(file);
    if (!recorder) return false;
    Lock turn(mix_->mutex);
    mix_->catchUp();
    mix_->recorder = std::move(recorder);
    return true;
}

void ClockedSound::lose() {
    Lock turn(mix_->mutex);
    mix_->catchUp();
    for (SoundVoice * voice : mix_->voices) {
        voice->lost = true;
        voice->playing = false;
        voice->silence();
    }
}

void ClockedSound::setRestorable(bool on) {
    Lock turn(mix_->mutex);
    mix_->restorable = on;
}

} // namespace platform
