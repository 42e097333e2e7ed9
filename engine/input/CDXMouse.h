#pragma once

// The mouse as a polled device: its steps and buttons become the window's mouse events. Where the host's
// messages tell of the mouse there is none. The window owns it; tick runs on the polling thread, flushSignals
// on the main thread, both with the window's lock held.

#include "app/Listeners.h"
#include "core/CXObject.h"
#include "platform/input/Mouse.h"

#include <vector>

class CWindow;

class CDXMouse : public CXObject, public CInputPoller {
public:
    static constexpr std::size_t kItems = 20; // read at most in one tick

    explicit CDXMouse(CWindow * window);
    CDXMouse(const CDXMouse &) = delete;
    CDXMouse & operator=(const CDXMouse &) = delete;
    ~CDXMouse() override;

    void tick() override;
    void flushSignals(bool deliver) override;

    CXPoint getPosition() const { return position_; } // the sum of all steps
    bool isLeftDown() const { return leftDown_; }
    bool isRightDown() const { return rightDown_; }
    bool isMiddleDown() const { return middleDown_; }

    static CDXMouse * getSingleton() { return singleton; } // null without a device

private:
    struct Event {
        int kind = 0;
        CXPoint point;
    };

    static CDXMouse * singleton;

    CWindow * window_;
    platform::Mouse & device_;
    CXPoint position_;
    bool leftDown_ = false, rightDown_ = false, middleDown_ = false;
    std::vector<Event> events_;
    std::vector<platform::Mouse::Item> items_; // of one tick
};
