#pragma once

// JOYSTICK: a joystick by its port, that raises ONSIGNAL when something about it changed. Owned by its scope.
// tick runs on the polling thread with the window's lock held, all else on the main thread.

#include "app/Listeners.h"
#include "platform/input/Joysticks.h"
#include "script/CMC_Object.h"

class CWindow;

class CMC_Joystick : public CMC_Object, public CInputPoller {
public:
    static const char * const kSignals[3];
    static const char * const kKeys[1];
    static constexpr int kOnSignal = 2; // in kSignals

    CMC_Joystick(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Joystick() override;

    bool done(bool all) override;
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;

    void tick() override;
    void flushSignals(bool deliver) override;

    int getPort() const { return port_; }
    // As scripts were told last; what the joystick doesn't have is up, or in the middle.
    bool getButtonState(int n) const;
    int getAxis(int n) const;

private:
    CWindow * window_; // not owned; null in scopes without one
    int port_;
    platform::Joysticks::State read_, told_;
};
