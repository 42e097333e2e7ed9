#pragma once

// Joysticks that a test plugs in and moves.

#include "platform/input/Joysticks.h"
#include "platform/thread/Mutex.h"

#include <map>

namespace platform {

class ScriptedJoysticks : public Joysticks {
public:
    const char * name() const override { return "scripted"; }
    bool read(int port, State & state) override {
        Lock hold(mutex_);
        auto found = states_.find(port);
        if (found == states_.end()) return false;
        state = found->second;
        return true;
    }
    void set(int port, const State & state) {
        Lock hold(mutex_);
        states_[port] = state;
    }

private:
    Mutex mutex_;
    std::map<int, State> states_ GUARDED_BY(mutex_);
};

} // namespace platform
