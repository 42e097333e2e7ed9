#pragma once

// The loudspeaker. The library asks for samples on a thread of its own; between two such turns a buffer's
// cursor stands. Made and ended on the main thread.

#include "platform/audio/SoundMix.h"

namespace platform {

class SdlSound : public MixingDevice {
public:
    // Null when no device can be had, and why: a few words.
    static std::unique_ptr<SdlSound> open(std::string & reason);
    ~SdlSound() override;
    SdlSound(const SdlSound &) = delete;
    SdlSound & operator=(const SdlSound &) = delete;

    const char * name() const override { return "SDL"; }
    bool record(const std::string &) override { return false; } // recordings need a clock that waits

private:
    explicit SdlSound(std::shared_ptr<SoundMix> mix) : MixingDevice(mix), mix_(std::move(mix)) {}

    std::shared_ptr<SoundMix> mix_;
    unsigned device_ = 0;
};

} // namespace platform
