#pragma once

// TIMER: raises ONTICK in an interval, driven by the window's timers, where its entry stays from its making
// to its end. Owned by its scope. Main thread.

#include "core/CTimerNotificator.h"
#include "script/CMC_Object.h"

class CTimerObject;
class CWindow;
class CXTimer;

class CMC_Timer : public CMC_Object, public CTimerNotificator {
public:
    static const char * const kSignals[4];
    static const char * const kKeys[3];
    static constexpr int kOnTick = 3; // in kSignals

    CMC_Timer(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Timer() override;

    bool done(bool all) override;
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;
    void onTimer(int id) override;

    void enable(); // from 0 on, unless it runs already
    void disable();
    // These stop and continue the intervals of all timers of the window.
    void pause();
    void resume();
    void reset() { set(0); }
    void set(int ticks); // a new interval begins
    void setElapse(int milliseconds);
    int getTicks() const { return ticks_; }
    int getMaxTicks() const { return maxTicks_; }
    const CXString & getElapse() const { return elapse_; }
    bool isEnabled() const { return enabled_; }

private:
    CXTimer * timers() const; // null without a window
    void unregister();

    CWindow * window_; // not owned; null in scopes without one
    int timerId_ = 0;  // 0 without an entry
    bool enabled_ = false;
    int ticks_ = 0;
    int maxTicks_ = 0; // 0 and below: no limit
    CXString elapse_;  // milliseconds
};
