#pragma once

// The joysticks and game pads of the machine, which may come and go. Ports are taken in the order in which
// they come; a free one is taken again. A pad's cross of four counts as its first two axes. Started and
// updated by the window, on the main thread; read on the thread that polls.

#include "platform/input/Joysticks.h"
#include "platform/thread/Mutex.h"

#include <cstddef>
#include <vector>

union SDL_Event;
struct _SDL_Joystick;

namespace platform {

class SdlJoysticks : public Joysticks {
public:
    static constexpr int kDeadZone = 80; // nearer to the middle an axis is in the middle

    SdlJoysticks() = default;
    SdlJoysticks(const SdlJoysticks &) = delete;
    SdlJoysticks & operator=(const SdlJoysticks &) = delete;
    ~SdlJoysticks() override;

    const char * name() const override { return "SDL"; }
    bool read(int port, State & state) override;

    // ---- for the window
    void start();
    void handle(const SDL_Event & event);
    void update();

private:
    void plug(int device);
    void unplug(int instance);

    bool started_ = false;
    std::vector<_SDL_Joystick *> devices_; // by port, null for a free one; owned
    Mutex mutex_;
    std::vector<State> states_ GUARDED_BY(mutex_); // by port; one that went is at rest
};

} // namespace platform
