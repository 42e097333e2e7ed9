#pragma once

// A list of objects, none owned.

#include "core/PointerList.h"

class CXVector : public PointerList<CXObject> {
public:
    CXVector(int capacity, float loadFactor) : PointerList(capacity, loadFactor) {}

    using PointerList::add;
    virtual void add(CXVector * other) { append(*other); }
    virtual CXObject * setAt(int i,
                             CXObject * item); // the old item; null outside 0..size - 1, where nothing is set
    virtual void insertAt(int i, CXObject * item); // i in 0..size
    virtual void copyInto(CXVector * other);       // which must have room
    CXObject * clone() override;                   // the same items
};
