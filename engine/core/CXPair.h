#pragma once

// Two pointers with a name; nothing is owned.

#include "core/CXObject.h"

class CXPair : public CXObject {
public:
    CXPair(const CXString & name, void * value) : name_(name), first_(value), second_(value) {
        name_.Lower();
    }
    CXPair(void * first, void * second) : first_(first), second_(second) {}

    const CXString & getName() const { return name_; }
    void * getFirst() const { return first_; }
    void * getSecond() const { return second_; }
    void setFirst(void * first) { first_ = first; }
    void setSecond(void * second) { second_ = second; }
    CXObject * clone() override {
        auto * copy = new CXPair(first_, second_);
        copy->name_ = "cloned";
        return copy;
    }

private:
    CXString name_;
    void * first_;
    void * second_;
};
