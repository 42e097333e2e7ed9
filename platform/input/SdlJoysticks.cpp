#include "platform/input/SdlJoysticks.h"

#include <SDL2/SDL.h>
#include <algorithm>
#include <cstdlib>

namespace platform {

namespace {

int axis(int v) {
    int scaled = std::max(v * Joysticks::kFarEnd / SDL_JOYSTICK_AXIS_MAX, -Joysticks::kFarEnd);
    return std::abs(scaled) < SdlJoysticks::kDeadZone ? 0 : scaled;
}

Joysticks::State stateOf(SDL_Joystick * device) {
    Joysticks::State state;
    int axes = std::min(SDL_JoystickNumAxes(device), static_cast<int>(state.axes.size()));
    for (int i = 0; i < axes; i++)
        state.axes[static_cast<std::size_t>(i)] = axis(SDL_JoystickGetAxis(device, i));
    for (int i = 0; i < std::min(SDL_JoystickNumButtons(device), 32); i++)
        state.buttons |= std::uint32_t{SDL_JoystickGetButton(device, i)} << static_cast<unsigned>(i);
    if (SDL_JoystickNumHats(device) < 1) return state;
    Uint8 cross = SDL_JoystickGetHat(device, 0);
    if (cross & SDL_HAT_LEFT) state.axes[0] = -Joysticks::kFarEnd;
    if (cross & SDL_HAT_RIGHT) state.axes[0] = Joysticks::kFarEnd;
    if (cross & SDL_HAT_UP) state.axes[1] = -Joysticks::kFarEnd;
    if (cross & SDL_HAT_DOWN) state.axes[1] = Joysticks::kFarEnd;
    return state;
}

} // namespace

SdlJoysticks::~SdlJoysticks() {
    for (SDL_Joystick * each : devices_)
        if (each) SDL_JoystickClose(each);
    if (started_) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
}

// Each that is there already is told of as one that comes.
void SdlJoysticks::start() {
    if (!started_) started_ = SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0;
}

bool SdlJoysticks::read(int port, State & state) {
    Lock hold(mutex_);
    if (port < 0 || static_cast<std::size_t>(port) >= states_.size()) return false;
    state = states_[static_cast<std::size_t>(port)];
    return true;
}

void SdlJoysticks::handle(const SDL_Event & event) {
    if (event.type == SDL_JOYDEVICEADDED) plug(event.jdevice.which);
    if (event.type == SDL_JOYDEVICEREMOVED) unplug(event.jdevice.which);
}

void SdlJoysticks::plug(int device) {
    if (SDL_JoystickFromInstanceID(SDL_JoystickGetDeviceInstanceID(device))) return; // open already
    SDL_Joystick * opened = SDL_JoystickOpen(device);
    if (!opened) return;
    auto place = std::ranges::find(devices_, nullptr);
    if (place == devices_.end())
        devices_.push_back(opened);
    else
        *place = opened;
}

void SdlJoysticks::unplug(int instance) {
    for (SDL_Joystick *& each : devices_)
        if (each && SDL_JoystickInstanceID(each) == instance) {
            SDL_JoystickClose(each);
            each = nullptr;
        }
}

void SdlJoysticks::update() {
    Lock hold(mutex_);
    states_.resize(devices_.size());
    for (std::size_t i = 0; i < devices_.size(); i++)
        states_[i] = devices_[i] ? stateOf(devices_[i]) : State();
}

} // namespace platform
