#pragma once

// A sound device without a loudspeaker: cursors follow a clock, and what would be heard can be written to a
// file. The mix is made when something is asked or changed, for the time since then; so every change is heard
// from its own millisecond on.

#include "platform/audio/SoundMix.h"
#include "platform/clock/Clock.h"

namespace platform {

class ClockedSound : public MixingDevice {
public:
    ClockedSound(Clock & clock, const char * name); // the clock outlives this
    ~ClockedSound() override;
    ClockedSound(const ClockedSound &) = delete;
    ClockedSound & operator=(const ClockedSound &) = delete;

    const char * name() const override { return name_; }
    bool record(const std::string & file) override;

    // All buffers are lost from now on, as when another program takes the device.
    void lose();
    // While this is off no buffer can be restored.
    void setRestorable(bool on);

private:
    struct Mix;
    ClockedSound(std::shared_ptr<Mix> mix, const char * name);

    const char * name_;
    std::shared_ptr<Mix> mix_;
};

} // namespace platform
