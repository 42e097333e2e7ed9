#pragma once

// The bridge between the running scene and the window; there is one in a process.

#include "core/CXObject.h"

class CUnit6 : public CXObject {
public:
    virtual bool isActive() { return active_; }
    void setActivity(bool active) { active_ = active; }
    // A timer of the window that was set for this unit fell due.
    virtual void onTimer(int) {}

private:
    bool active_ = false;
};
