#pragma once

// Three pointers; nothing is owned.

#include "core/CXObject.h"

class CXTriple : public CXObject {
public:
    CXTriple(void * first, void * second, void * third) : first_(first), second_(second), third_(third) {}

    void * getFirst() const { return first_; }
    void * getSecond() const { return second_; }
    void * getThird() const { return third_; }
    void setFirst(void * first) { first_ = first; }
    void setSecond(void * second) { second_ = second; }
    void setThird(void * third) { third_ = third; }
    CXObject * clone() override { return new CXTriple(first_, second_, third_); }

private:
    void * first_;
    void * second_;
    void * third_;
};
