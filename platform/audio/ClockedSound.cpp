#include "platform/audio/ClockedSound.h"

#include "platform/audio/SoundVoice.h"
#include "platform/audio/WavRecorder.h"
#include "platform/thread/Mutex.h"

#include <algorithm>
#include <array>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t kChunk = 2048; // frames that are mixed at once

bool isPlayable(const SoundFormat & f) {
    return (f.channels == 1 || f.channels == 2) && (f.bits == 8 || f.bits == 16) &&
           f.rate >= SoundBuffer::kLowest && f.rate <= SoundBuffer::kHighest;
}

} // namespace

struct ClockedSound::Mix {
    explicit Mix(Clock & of) : clock(&of), last(of.tickCount()) {}

    void catchUp() REQUIRES(mutex);

    Mutex mutex;
    Clock * clock GUARDED_BY(mutex); // null once the device is gone
    std::uint32_t last GUARDED_BY(mutex);
    std::uint64_t elapsed GUARDED_BY(mutex) = 0; // milliseconds
    std::uint64_t mixed GUARDED_BY(mutex) = 0;   // frames
    bool restorable GUARDED_BY(mutex) = true;
    std::vector<SoundVoice *> voices GUARDED_BY(mutex); // the buffers', in order of their making
    std::unique_ptr<WavRecorder> recorder GUARDED_BY(mutex);
};

void ClockedSound::Mix::catchUp() {
    if (!clock) return;
    elapsed += static_cast<std::uint32_t>(clock->tickCount() - std::exchange(last, clock->tickCount()));
    std::uint64_t frames = elapsed * SoundVoice::kRate / 1000 - mixed;
    mixed += frames;
    if (!recorder) {
        if (frames > 0)
            for (SoundVoice * voice : voices) voice->advance(static_cast<std::size_t>(frames), {});
        return;
    }
    std::array<std::int32_t, kChunk * 2> sums{};
    while (frames > 0) {
        auto count = static_cast<std::size_t>(std::min<std::uint64_t>(frames, kChunk));
        std::span<std::int32_t> part(sums.data(), count * 2);
        std::fill(part.begin(), part.end(), 0);
        for (SoundVoice * voice : voices) voice->advance(count, part);
        recorder->write(part);
        frames -= count;
    }
}

class ClockedSound::Buffer : public SoundBuffer {
public:
    Buffer(std::shared_ptr<Mix> mix, const SoundFormat & format, int bytes)
        : mix_(std::move(mix)), voice_(format, bytes) {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        mix_->voices.push_back(&voice_);
    }
    ~Buffer() override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        std::erase(mix_->voices, &voice_);
    }

    int size() const override { return voice_.size(); }
    bool lock(int offset, int bytes, Region & region) override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        region = {};
        if (voice_.lost || offset < 0 || offset >= size() || bytes < 0 || bytes > size()) return false;
        region.firstBytes = std::min(bytes, size() - offset);
        region.secondBytes = bytes - region.firstBytes;
        region.first = voice_.bytes().data() + offset;
        if (region.secondBytes > 0) region.second = voice_.bytes().data();
        return true;
    }
    void unlock(const Region &) override {}
    bool play(bool looping) override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        if (voice_.lost) return false;
        voice_.playing = true;
        voice_.looping = looping;
        return true;
    }
    void stop() override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        voice_.playing = false;
    }
    unsigned status() override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        return (voice_.playing ? kPlaying : 0U) | (voice_.lost ? kLost : 0U) |
               (voice_.playing && voice_.looping ? kLooping : 0U);
    }
    int cursor() override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        return voice_.cursor();
    }
    bool setCursor(int offset) override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        if (offset < 0 || offset >= size()) return false;
        voice_.setCursor(offset);
        return true;
    }
    bool setVolume(int volume) override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        return voice_.setVolume(volume);
    }
    bool setPan(int pan) override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        return voice_.setPan(pan);
    }
    bool setFrequency(int hertz) override {
        Lock lock(mix_->mutex);
        mix_->catchUp();
        return voice_.setFrequency(hertz);
    }
    bool restore() override {
        Lock lock(mix_->mutex);
        if (!voice_.lost) return true;
        if (!mix_->restorable) return false;
        voice_.lost = false;
        return true;
    }

private:
    std::shared_ptr<Mix> mix_;
    SoundVoice voice_;
};

ClockedSound::ClockedSound(Clock & clock, const char * name)
    : name_(name), mix_(std::make_shared<Mix>(clock)) {}

ClockedSound::~ClockedSound() {
    Lock lock(mix_->mutex);
    mix_->catchUp();
    mix_->recorder.reset();
    mix_->clock = nullptr;
}

bool ClockedSound::setFormat(const SoundFormat & format) { return isPlayable(format); }

std::unique_ptr<SoundBuffer> ClockedSound::createBuffer(const SoundFormat & format, int bytes) {
    if (!isPlayable(format) || bytes < format.frame() || bytes > kLargest || bytes % format.frame() != 0)
        return nullptr;
    return std::make_unique<Buffer>(mix_, format, bytes);
}

bool ClockedSound::record(const std::string & file) {
    std::unique_ptr<WavRecorder> recorder = WavRecorder::make(file);
    if (!recorder) return false;
    Lock lock(mix_->mutex);
    mix_->catchUp();
    mix_->recorder = std::move(recorder);
    return true;
}

void ClockedSound::lose() {
    Lock lock(mix_->mutex);
    mix_->catchUp();
    for (SoundVoice * voice : mix_->voices) {
        voice->lost = true;
        voice->playing = false;
        voice->silence();
    }
}

void ClockedSound::setRestorable(bool on) {
    Lock lock(mix_->mutex);
    mix_->restorable = on;
}

} // namespace platform
