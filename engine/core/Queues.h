#pragma once

// First-in and last-in queues, over untyped pointers (users test the size before pop) and over objects (pop
// of an empty queue is null). None owns what it holds. Capacity 101 and load factor 0.75 unless told.

#include "core/CXArray.h"
#include "core/CXVector.h"

class CQuene : public CXArray {
public:
    explicit CQuene(int capacity = 101, float loadFactor = 0.75F) : CXArray(capacity, loadFactor) {}
    virtual void push(void * item) { add(item); }
    virtual void * pop() = 0;
};

class CFifoQuene : public CQuene {
public:
    using CQuene::CQuene;
    void * pop() override {
        void * item = at(0);
        removeAt(0);
        return item;
    }
};

class CLifoQuene : public CQuene {
public:
    using CQuene::CQuene;
    void * pop() override { return at(--size); }
};

class CXQuene : public CXVector {
public:
    explicit CXQuene(int capacity = 101, float loadFactor = 0.75F) : CXVector(capacity, loadFactor) {}
    virtual void push(CXObject * item) { add(item); }
    virtual CXObject * pop() = 0;
};

class CXFifoQuene : public CXQuene {
public:
    using CXQuene::CXQuene;
    CXObject * pop() override {
        if (size == 0) return nullptr;
        CXObject * item = at(0);
        removeAt(0);
        return item;
    }
};

class CXLifoQuene : public CXQuene {
public:
    using CXQuene::CXQuene;
    CXObject * pop() override { return size == 0 ? nullptr : at(--size); }
};
