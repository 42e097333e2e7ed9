#pragma once

// A boxed number; its hash is its value, so it can key a CHashtable. Counting wraps around.

#include "core/CXObject.h"
#include "core/Wrapping.h"

class CInteger : public CXObject {
public:
    CInteger() = default;
    explicit CInteger(int value) : value_(value) {}
    explicit CInteger(const CXString & text) : value_(text.toNumber()) {}

    void increment() { value_ = wrap::add(value_, 1); }
    void decrement() { value_ = wrap::sub(value_, 1); }
    void parse(const CXString & text) { value_ = text.toNumber(); }
    int toInt() const { return value_; }
    using CXObject::toString;
    static CXString toString(int value) { return CXString::toString(value); }

    int getHashcode() override { return value_; }
    bool equals(CXObject * other) override { return value_ == static_cast<CInteger *>(other)->value_; }

private:
    int value_ = 0;
};
