#pragma once

// The buffers of a device and what they sound like together. Who makes the device says how the mix moves on:
// with a clock, or as a loudspeaker asks for samples. Any thread: all that a buffer is told is one short turn
// under the lock, and a lock's region is memory of its own until it is unlocked.

#include "platform/audio/SoundDevice.h"
#include "platform/audio/SoundVoice.h"
#include "platform/thread/Mutex.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace platform {

struct SoundMix {
    SoundMix() = default;
    virtual ~SoundMix() = default;
    SoundMix(const SoundMix &) = delete;
    SoundMix & operator=(const SoundMix &) = delete;

    // Before a buffer is asked or changed: up to now all is heard as it was.
    virtual void catchUp() REQUIRES(mutex) {}
    // The next frames, left and right in turn; what is too loud is cut.
    void next(std::span<std::int16_t> frames) REQUIRES(mutex);
    // They pass unheard.
    void pass(std::uint64_t frames) REQUIRES(mutex);

    Mutex mutex;
    bool restorable GUARDED_BY(mutex) = true;
    std::vector<SoundVoice *> voices GUARDED_BY(mutex); // the buffers', in order of their making
};

// A device whose buffers are mixed here.
class MixingDevice : public SoundDevice {
public:
    bool setFormat(const SoundFormat & format) override;
    std::unique_ptr<SoundBuffer> createBuffer(const SoundFormat & format, int bytes) override;

protected:
    explicit MixingDevice(std::shared_ptr<SoundMix> mix) : mix_(std::move(mix)) {}

private:
    std::shared_ptr<SoundMix> mix_; // shared with the buffers
};

} // namespace platform
