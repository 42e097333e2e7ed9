#pragma once

// The samples of one buffer, where in them it plays, and how it adds to what is heard. No clock, no lock.

#include "platform/audio/SoundDevice.h"

#include <cstddef>
#include <span>
#include <vector>

namespace platform {

class SoundVoice {
public:
    static constexpr int kRate = 22050; // frames a second of the mix

    SoundVoice(const SoundFormat & format, int bytes);

    // Moves on by so many frames of the mix and adds what is heard to them, left and right in turn; without a
    // place for them it only moves on.
    void advance(std::size_t frames, std::span<std::int32_t> mix);

    const SoundFormat & format() const { return format_; }
    std::vector<unsigned char> & bytes() { return bytes_; }
    int size() const { return static_cast<int>(bytes_.size()); }
    int cursor() const;
    void setCursor(int offset); // within the buffer
    bool setVolume(int volume);
    bool setPan(int pan);
    bool setFrequency(int hertz);
    void silence(); // in all its samples

    bool playing = false, looping = false, lost = false;

private:
    template <int Bits, int Channels>
    void add(std::int32_t * to, std::size_t frames) const;
    void setGains();

    SoundFormat format_;
    std::vector<unsigned char> bytes_;
    std::uint64_t end_;          // of the samples, in the units of the position
    std::uint64_t position_ = 0; // in frames, times kRate
    std::uint64_t step_;         // for a frame of the mix
    int volume_ = SoundBuffer::kFull, pan_ = SoundBuffer::kCentre;
    std::int32_t left_ = 0, right_ = 0; // factors, times 1 << 16
};

} // namespace platform
