#pragma once

// The engine's timers, driven by the window's tick: each fires at most once a pass, and what an engine that
// falls behind misses is lost. The caller chooses the ids. Tick thread only.

#include "core/CTimerNotificator.h"
#include "core/CXVector.h"

#include <cstdint>

class CUnit6;
class CWindow;

// One timer. Exactly one of the three targets is set; none is owned.
class CTimerObject : public CXObject {
public:
    int id = 0;
    unsigned interval = 0; // milliseconds
    int ticks = 0;         // times that it fired
    std::uint32_t lastTime = 0;
    std::uint32_t pauseDelta = 0;
    CUnit6 * unit = nullptr;
    CWindow * window = nullptr;
    CTimerNotificator * notificator = nullptr;
    bool onlyWhenActive = true; // a unit is told only while it is visible and active
    bool removed = false;       // goes at the next pass
};

class CXTimer : public CXObject {
public:
    CXTimer() = default;
    CXTimer(const CXTimer &) = delete;
    CXTimer & operator=(const CXTimer &) = delete;
    ~CXTimer() override;

    void add(int id, unsigned interval, CUnit6 * unit, bool onlyWhenActive);
    void add(int id, unsigned interval, CWindow * window);
    void add(int id, unsigned interval, CTimerNotificator * notificator);
    CTimerObject * find(int id); // the first one with that id, or null; stays the timer's
    void remove(int id);
    void reset(int id);
    void pause();
    void resume();
    void domodal();

    static void enable(bool on) { enabled = on; } // all timers of the program
    static bool isEnabled() { return enabled; }

private:
    CTimerObject * append(int id, unsigned interval);
    static void deliver(CTimerObject & timer);

    static bool enabled;

    CXVector timers{101, 0.75F}; // owned
    CXVector work{101, 0.75F};   // the timers of the outermost pass
    int passes_ = 0;             // that run inside each other
};
