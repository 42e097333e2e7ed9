#pragma once

// What a pixel object asks of the canvas that shows it: to repaint a part, and to let go of it.

class CGraphicsObject;
class CRefreshScreen;
class CXRect;

class CCanvasIfc {
public:
    virtual void Invalidate(CXRect * rect) = 0; // null: the whole canvas
    virtual void operator>>(CGraphicsObject * object) = 0;
    virtual CRefreshScreen * getScreen() = 0; // this canvas as the screen's refresh; null when it isn't one

protected:
    ~CCanvasIfc() = default;
};
