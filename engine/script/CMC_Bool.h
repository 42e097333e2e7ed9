#pragma once

// BOOL: in expressions + is AND and * is OR.

#include "script/CMC_Variable.h"

class CMC_Bool : public CMC_Variable {
public:
    explicit CMC_Bool(const CXString & name, int poolIndex = -1)
        : CMC_Variable(name, types::kBool, poolIndex) {}
    explicit CMC_Bool(bool value) : CMC_Bool(CXString()) { value_ = value; }
    CMC_Bool(CMC_ObjectsContainer * scope, CMElement * element);

    bool getValue() const { return value_; }
    void setValue(bool value) {
        value_ = value;
        onChange(false);
    }
    void put(bool value) { value_ = value; } // without onChange

    int asInteger() override { return value_ ? 1 : 0; }
    double asDouble() override { return value_ ? 1.0 : 0.0; }
    bool asBool() override { return value_; }
    CXString asString() override { return CXString::toString(value_); }
    void set(CMC_Variable * source) override { change(source->asBool()); }
    void clear() override { change(false); }
    void swap(CMC_Variable *, CMC_Variable *) override { invert(); } // whatever the operands
    void inc() override { invert(); }
    void dec() override { invert(); }
    bool equals(CMC_Variable * other) override { return value_ == other->asBool(); }
    int compare(CMC_Variable * other) override;
    CMC_Variable * calculate(CMC_Variable * right, int op) override;
    void setDefault(CMC_Variable * source) override { defaultValue_ = source->asBool(); }
    void resetINI() override;
    int getBufferLen() override { return 5; }
    void netstore(void * buffer) override;
    bool netrestore(const void * buffer, int size) override;
    void store(CXArchive * archive) override;
    void restore(CXArchive * archive) override;
    void fromString(const CXString & text) override { value_ = text.toBool(); }
    void copy(CMC_Variable * source) override { value_ = source->asBool(); }
    CMC_Object * clone() override;

private:
    void change(bool value);
    void invert() {
        value_ = !value_;
        onChange(true);
    }

    bool value_ = false;
    bool defaultValue_ = false;
};
