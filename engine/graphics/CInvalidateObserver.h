#pragma once

// Hears of changes of a pixel object. The object tells its end, so that nobody keeps its pointer.

class CGraphicsObject;
class CXRect;

class CInvalidateObserver {
public:
    virtual void onInvalidate(CGraphicsObject * object,
                              CXRect * rect) = 0; // rect: the object's destiny's pixels
    virtual void onDestroy(CGraphicsObject * object) = 0;

protected:
    ~CInvalidateObserver() = default; // nobody deletes an object as an observer
};
