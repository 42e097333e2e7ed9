#pragma once

// The base of everything with pixels.

#include "core/CXObject.h"
#include "core/CXSize.h"

class CGraphicsObject : public CXObject {
public:
    virtual int Width() { return size_.cx; }
    virtual int Height() { return size_.cy; }
    virtual CXSize Size() { return size_; }
    virtual void setSize(CXSize size) { size_ = size; }

private:
    CXSize size_; // pixels
};
