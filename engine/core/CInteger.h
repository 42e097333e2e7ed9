#pragma once

// A boxed number; its hash is its value, so it can key a CHashtable.

#include "core/CXObject.h"

class CInteger : public CXObject {
public:
    CInteger() = default;
    explicit CInteger(int value) : value_(value) {}
    explicit CInteger(const CXString & text) : value_(text.toNumber()) {}

    // At 32 bits they wrap around.
    void increment() { value_ = static_cast<int>(static_cast<unsigned>(value_) + 1U); }
    void decrement() { value_ = static_cast<int>(static_cast<unsigned>(value_) - 1U); }
    void parse(const CXString & text) { value_ = text.toNumber(); }
    int toInt() const { return value_; }
    using CXObject::toString;
    static CXString toString(int value) { return CXString::toString(value); }

    int getHashcode() override { return value_; }
    bool equals(CXObject * other) override { return value_ == static_cast<CInteger *>(other)->value_; }

private:
    int value_ = 0;
};
