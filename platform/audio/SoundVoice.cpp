#include "platform/audio/SoundVoice.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int kGainBits = 16;

std::int32_t gain(int volume) {
    if (volume <= SoundBuffer::kSilence) return 0;
    return static_cast<std::int32_t>(std::lround(std::pow(10.0, volume / 2000.0) * (1 << kGainBits)));
}

template <int Bits>
std::int32_t sample(const unsigned char * at) {
    if constexpr (Bits == 8)
        return (*at - 128) * 256;
    else
        return static_cast<std::int16_t>(at[0] | at[1] << 8);
}

} // namespace

SoundVoice::SoundVoice(const SoundFormat & format, int bytes)
    : format_(format),
      bytes_(static_cast<std::size_t>(bytes)),
      end_(static_cast<std::uint64_t>(bytes / format.frame()) * kRate),
      step_(static_cast<std::uint64_t>(format.rate)) {
    silence();
    setGains();
}

void SoundVoice::silence() {
    std::fill(bytes_.begin(), bytes_.end(), static_cast<unsigned char>(format_.bits == 8 ? 128 : 0));
}

int SoundVoice::cursor() const { return static_cast<int>(position_ / kRate) * format_.frame(); }

void SoundVoice::setCursor(int offset) {
    position_ = static_cast<std::uint64_t>(offset / format_.frame()) * kRate;
}

bool SoundVoice::setVolume(int volume) {
    if (volume < SoundBuffer::kSilence || volume > SoundBuffer::kFull) return false;
    volume_ = volume;
    setGains();
    return true;
}

bool SoundVoice::setPan(int pan) {
    if (pan < SoundBuffer::kLeft || pan > SoundBuffer::kRight) return false;
    pan_ = pan;
    setGains();
    return true;
}

bool SoundVoice::setFrequency(int hertz) {
    if (hertz == SoundBuffer::kOwnFrequency) hertz = format_.rate;
    if (hertz < SoundBuffer::kLowest || hertz > SoundBuffer::kHighest) return false;
    step_ = static_cast<std::uint64_t>(hertz);
    return true;
}

void SoundVoice::setGains() {
    left_ = gain(volume_ - std::max(pan_, 0));
    right_ = gain(volume_ + std::min(pan_, 0));
}

// Between two frames a straight line; a looping buffer's last frame leads to its first, another's stays.
template <int Bits, int Channels>
void SoundVoice::add(std::int32_t * to, std::size_t frames) const {
    constexpr std::size_t kFrame = Channels * Bits / 8;
    const unsigned char * samples = bytes_.data();
    const std::size_t last = bytes_.size() - kFrame;
    std::uint64_t position = position_;
    for (std::size_t i = 0; i < frames; i++, position += step_) {
        while (position >= end_) position -= end_;
        std::size_t here = position / kRate * kFrame;
        std::size_t next = here < last ? here + kFrame : looping ? 0 : here;
        auto part = static_cast<std::int64_t>(position % kRate);
        auto between = [&](std::size_t channel) {
            std::int64_t a = sample<Bits>(samples + here + channel * Bits / 8);
            std::int64_t b = sample<Bits>(samples + next + channel * Bits / 8);
            return a + (b - a) * part / kRate;
        };
        std::int64_t left = between(0), right = Channels == 2 ? between(Channels - 1) : left;
        *to++ += static_cast<std::int32_t>(left * left_ >> kGainBits);
        *to++ += static_cast<std::int32_t>(right * right_ >> kGainBits);
    }
}

void SoundVoice::advance(std::size_t frames, std::span<std::int32_t> mix) {
    if (!playing || lost || end_ == 0) return;
    bool ends = !looping && (end_ - position_ + step_ - 1) / step_ <= frames;
    std::size_t heard = ends ? static_cast<std::size_t>((end_ - position_ + step_ - 1) / step_) : frames;
    if (!mix.empty() && (left_ || right_)) {
        if (format_.bits == 8 && format_.channels == 1) add<8, 1>(mix.data(), heard);
        if (format_.bits == 8 && format_.channels == 2) add<8, 2>(mix.data(), heard);
        if (format_.bits == 16 && format_.channels == 1) add<16, 1>(mix.data(), heard);
        if (format_.bits == 16 && format_.channels == 2) add<16, 2>(mix.data(), heard);
    }
    if (ends) {
        playing = false;
        position_ = 0;
    } else {
        position_ = (position_ + step_ * frames) % end_;
    }
}

} // namespace platform
