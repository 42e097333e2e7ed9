#pragma once

// What the window tells of input. None of these is owned by who calls it; each takes itself off before it
// goes. Main thread, but for CInputPoller::tick.

#include "core/CXPoint.h"

// A device that is polled: tick reads it (on the polling thread, with the window's lock held, where there is
// one), flushSignals raises what was collected.
class CInputPoller {
public:
    virtual ~CInputPoller() = default;
    virtual void tick() = 0;
    virtual void flushSignals(bool) = 0;
};

// True means consumed. Buttons: 0 left, 1 middle, 2 right.
class CMouseListener {
public:
    virtual ~CMouseListener() = default;
    virtual bool onMouseMove(CXPoint) { return false; }
    virtual bool onClick(int, CXPoint) { return false; }
    virtual bool onClick(CXPoint) { return false; }
    virtual bool onRelease(int, CXPoint) { return false; }
    virtual bool onRelease(CXPoint) { return false; }
    virtual bool onDblClick(CXPoint) { return false; }
    virtual bool onSetFocus() { return false; }
    virtual bool onLooseFocus() { return false; }
};

class CKeyListener {
public:
    virtual ~CKeyListener() = default;
    virtual bool onKeyUp(int) { return false; }
    virtual bool onKeyDown(int) { return false; }
    virtual bool onChar(unsigned char) { return false; }
};
