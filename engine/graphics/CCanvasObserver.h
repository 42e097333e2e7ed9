#pragma once

// Follows the refresh of the screen. Not owned by the screen.

class CCanvasObserver {
public:
    virtual void onInitialUpdate() {}  // before a scene's first picture
    virtual void onInitialUpdated() {} // behind it
    virtual void onUpdate() {}         // before the objects of a frame are drawn
    virtual void onUpdated() {}        // behind them
    virtual void onFocusOn() {}
    virtual void onFocusOff() {}

protected:
    ~CCanvasObserver() = default;
};
