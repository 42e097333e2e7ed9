#pragma once

// Is told what happens to a control. It takes itself off the control before it goes. Main thread.

#include "core/CXPoint.h"

class CControl;

class CControlNotifier {
public:
    virtual ~CControlNotifier() = default;
    virtual void onControlOnMove(CControl *, CXPoint) {}
    virtual void onControlFocusOn(CControl *, CXPoint) {}
    virtual void onControlFocusOff(CControl *, CXPoint) {}
    virtual void onControlClicked(CControl *, CXPoint) {}
    virtual void onControlReleased(CControl *, CXPoint) {}
    virtual void onControlAction(CControl *, CXPoint) {}
    virtual void onControlPopup(CControl *, CXPoint) {}
    virtual void onStartDragging(CControl *, CXPoint) {}
    virtual void onDragging(CControl *, CXPoint) {}
    virtual void onEndDragging(CControl *, CXPoint) {}
};
