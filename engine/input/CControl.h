#pragma once

// The base of what a person operates with the pointer: it tells its notifiers, who aren't owned. Main thread.

#include "app/Listeners.h"
#include "core/CXArray.h"

class CControlNotifier;
class CWindow;

class CControl : public CXObject, public CKeyListener {
public:
    explicit CControl(CWindow * window) : window_(window) {}

    virtual void addNotifier(CControlNotifier * notifier); // once
    virtual void removeNotifier(CControlNotifier * notifier);
    // Each tells all notifiers, which may run scripts; the result is 0.
    virtual int onMouseMove(CXPoint point);
    virtual int onFocusOn(CXPoint point);
    virtual int onFocusOff(CXPoint point);
    virtual int onClick(CXPoint point);
    virtual int onRelease(CXPoint point);
    virtual int onAction(CXPoint point);
    virtual int onRClick(CXPoint point);
    virtual int onStartDragging(CXPoint point);
    virtual int onDragging(CXPoint point);
    virtual int onEndDragging(CXPoint point);

    int getId() const { return id_; }
    void SetID(int id) { id_ = id; }
    bool IsEnabled() const { return enabled_; }
    void Enable(bool on) { enabled_ = on; }
    int GetFlags() const { return flags_; }
    void SetFlags(int flags) { flags_ = flags; }

protected:
    CWindow * window_; // not owned; null in scopes without one
    CXArray notifiers_{11, 0.75F};

private:
    int tell(void (CControlNotifier::*what)(CControl *, CXPoint), CXPoint point);

    int id_ = 0;
    bool enabled_ = true;
    int flags_ = 0;
};
