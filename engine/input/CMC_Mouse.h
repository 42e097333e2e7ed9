#pragma once

// MOUSE: tells scripts of the pointer and lets them move, hold and show it. Owned by its scope. Main thread.

#include "app/Listeners.h"
#include "core/CXRect.h"
#include "script/CMC_Object.h"

class CWindow;

class CMC_Mouse : public CMC_Object, public CMouseListener {
public:
    static constexpr int kPriority = 100002; // above the unit
    static const char * const kSignals[7];
    static constexpr std::span<const char * const> kKeys = {};
    enum Signal { kOnMove = 3, kOnClick, kOnRelease, kOnDblClick };
    enum Cursor { kArrow = 1, kWait, kActive };

    CMC_Mouse(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Mouse() override;

    bool done(bool all) override;
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;

    bool onMouseMove(CXPoint point) override;
    bool onClick(int button, CXPoint point) override;
    using CMouseListener::onClick;
    bool onRelease(int button, CXPoint point) override;
    using CMouseListener::onRelease;
    bool onDblClick(CXPoint point) override;

    void set(int cursor);
    void setPosition(CXPoint point); // the system's pointer, to a place in the window
    void move(int dx, int dy);
    void setClipRect(int left, int top, int right, int bottom); // in the window
    void setActiveRect(CXRect rect) { activeRect_ = rect; }     // where events count; empty: everywhere
    void enableSignals(bool on) { signalsEnabled_ = on; }       // of the buttons
    CXPoint getPosition() const { return position_; }
    CXPoint getLastClick() const { return lastClick_; }
    CWindow * getWindow() const { return window_; } // null in scopes without one

    static const char * getButton(int button); // "LEFT", "MIDDLE", "RIGHT"
    // The pointer is free; forget: for good, else until restore.
    static void reset(bool forget);
    static void restore();

    // The object of that name in a scope around takes the bindings of an element of the same name.
    static CMC_Object * mergesWith(CMC_ObjectsContainer * scope, CMElement * element);

private:
    bool counts(CXPoint point) const { return activeRect_.IsEmpty() || activeRect_.IsInRect(point); }
    void raise(int signal, int button);

    static CXRect clipRect; // on the screen

    CWindow * window_; // not owned
    bool enabled_ = true, signalsEnabled_ = true;
    CXPoint position_, lastClick_;
    CXRect activeRect_;
};
