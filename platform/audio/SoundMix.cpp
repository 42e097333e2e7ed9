#include "platform/audio/SoundMix.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t kChunk = 2048; // frames that are mixed at once

bool isPlayable(const SoundFormat & f) {
    return (f.channels == 1 || f.channels == 2) && (f.bits == 8 || f.bits == 16) &&
           f.rate >= SoundBuffer::kLowest && f.rate <= SoundBuffer::kHighest;
}

class MixedBuffer : public SoundBuffer {
public:
    MixedBuffer(std::shared_ptr<SoundMix> mix, const SoundFormat & format, int bytes)
        : mix_(std::move(mix)), voice_(format, bytes) {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        mix_->voices.push_back(&voice_);
    }
    ~MixedBuffer() override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        std::erase(mix_->voices, &voice_);
    }

    int size() const override { return voice_.size(); }
    bool lock(int offset, int bytes, Region & region) override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        region = {};
        if (voice_.lost || offset < 0 || offset >= size() || bytes < 0 || bytes > size()) return false;
        place_ = offset;
        region.firstBytes = std::min(bytes, size() - offset);
        region.secondBytes = bytes - region.firstBytes;
        written_.resize(static_cast<std::size_t>(bytes));
        region.first = written_.data();
        if (region.secondBytes > 0) region.second = region.first + region.firstBytes;
        copy(region, [](unsigned char * ours, unsigned char * theirs, std::size_t size) {
            std::memcpy(theirs, ours, size);
        });
        return true;
    }
    void unlock(const Region & region) override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        copy(region, [](unsigned char * ours, unsigned char * theirs, std::size_t size) {
            std::memcpy(ours, theirs, size);
        });
        written_.clear();
    }
    bool play(bool looping) override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        if (voice_.lost) return false;
        voice_.playing = true;
        voice_.looping = looping;
        return true;
    }
    void stop() override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        voice_.playing = false;
    }
    unsigned status() override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        return (voice_.playing ? kPlaying : 0U) | (voice_.lost ? kLost : 0U) |
               (voice_.playing && voice_.looping ? kLooping : 0U);
    }
    int cursor() override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        return voice_.cursor();
    }
    bool setCursor(int offset) override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        if (offset < 0 || offset >= size()) return false;
        voice_.setCursor(offset);
        return true;
    }
    bool setVolume(int volume) override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        return voice_.setVolume(volume);
    }
    bool setPan(int pan) override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        return voice_.setPan(pan);
    }
    bool setFrequency(int hertz) override {
        Lock turn(mix_->mutex);
        mix_->catchUp();
        return voice_.setFrequency(hertz);
    }
    bool restore() override {
        Lock turn(mix_->mutex);
        if (!voice_.lost) return true;
        if (!mix_->restorable) return false;
        voice_.lost = false;
        return true;
    }

private:
    // Both parts of a region that this buffer gave out, unless it was unlocked since.
    template <class Copy>
    void copy(const Region & region, Copy && each) {
        if (written_.empty() || region.first != written_.data()) return;
        auto count = [](int bytes) { return static_cast<std::size_t>(bytes); };
        each(voice_.bytes().data() + place_, region.first, count(region.firstBytes));
        if (region.second) each(voice_.bytes().data(), region.second, count(region.secondBytes));
    }

    std::shared_ptr<SoundMix> mix_;
    SoundVoice voice_;
    std::vector<unsigned char> written_; // of the region that is locked; the samples play on meanwhile
    int place_ = 0;                      // of its first byte
};

} // namespace

void SoundMix::next(std::span<std::int16_t> frames) {
    std::array<std::int32_t, kChunk * 2> sums{};
    while (!frames.empty()) {
        std::span<std::int32_t> part(sums.data(), std::min(frames.size(), sums.size()));
        std::fill(part.begin(), part.end(), 0);
        for (SoundVoice * voice : voices) voice->advance(part.size() / 2, part);
        std::ranges::transform(part, frames.begin(), [](std::int32_t sum) {
            return static_cast<std::int16_t>(std::clamp(sum, -32768, 32767));
        });
        frames = frames.subspan(part.size());
    }
}

void SoundMix::pass(std::uint64_t frames) {
    if (frames == 0) return;
    for (SoundVoice * voice : voices) voice->advance(static_cast<std::size_t>(frames), {});
}

bool MixingDevice::setFormat(const SoundFormat & format) { return isPlayable(format); }

std::unique_ptr<SoundBuffer> MixingDevice::createBuffer(const SoundFormat & format, int bytes) {
    if (!isPlayable(format) || bytes < format.frame() || bytes > kLargest || bytes % format.frame() != 0)
        return nullptr;
    return std::make_unique<MixedBuffer>(mix_, format, bytes);
}

} // namespace platform
