#pragma once

// DOUBLE: 64 bits of floating point, printed with five decimals.

#include "script/CMC_Variable.h"

class CMC_Double : public CMC_Variable {
public:
    explicit CMC_Double(const CXString & name, int poolIndex = -1)
        : CMC_Variable(name, types::kDouble, poolIndex) {}
    explicit CMC_Double(double value) : CMC_Double(CXString()) { value_ = value; }
    CMC_Double(CMC_ObjectsContainer * scope, CMElement * element);

    double getValue() const { return value_; }
    void setValue(double value) {
        value_ = value;
        onChange(false);
    }
    void put(double value) { value_ = value; } // without onChange

    int asInteger() override;
    double asDouble() override { return value_; }
    bool asBool() override { return value_ != 0.0; }
    CXString asString() override { return CXString::toString(value_); }
    void set(CMC_Variable * source) override { change(source->asDouble()); }
    void clear() override { change(0.0); }
    void swap(CMC_Variable * a, CMC_Variable * b) override;
    void inc() override;
    void dec() override;
    bool equals(CMC_Variable * other) override { return value_ == other->asDouble(); }
    int compare(CMC_Variable * other) override;
    CMC_Variable * calculate(CMC_Variable * right, int op) override;
    void setDefault(CMC_Variable * source) override { defaultValue_ = source->asDouble(); }
    void resetINI() override;
    int getBufferLen() override { return 12; }
    void netstore(void * buffer) override;
    bool netrestore(const void * buffer, int size) override;
    void store(CXArchive * archive) override;
    void restore(CXArchive * archive) override;
    void fromString(const CXString & text) override { value_ = text.toDouble(); }
    void copy(CMC_Variable * source) override { value_ = source->asDouble(); }
    CMC_Object * clone() override;

private:
    void change(double value);

    double value_ = 0.0;
    double defaultValue_ = 0.0;
};
