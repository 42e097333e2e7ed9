#pragma once

// Hears of changes of a pixel object. The object tells its end, so that nobody keeps its pointer.

class CGraphicsObject;
class CXRect;

class CInvalidateObserver {
public:
    virtual void onInvalidate(CGraphicsObject * object,
                              CXRect * rect) = 0; // rect: the object's destiny's pixels
    virtual void onDestroy(CGraphicsObject * object) = 0;
    // Another object stands for it from now on, as when a picture is loaded anew; it itself may live on.
    virtual void onReplaced(CGraphicsObject *, CGraphicsObject *) {}

protected:
    ~CInvalidateObserver() = default; // nobody deletes an object as an observer
};
