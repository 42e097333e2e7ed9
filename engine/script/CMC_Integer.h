#pragma once

// INTEGER: 32 bits, signed, wrapping.

#include "script/CMC_Variable.h"
#include "script/Conversions.h"

class CMC_Integer : public CMC_Variable {
public:
    explicit CMC_Integer(const CXString & name, int poolIndex = -1)
        : CMC_Variable(name, types::kInteger, poolIndex) {}
    explicit CMC_Integer(int value) : CMC_Integer(CXString()) { value_ = value; }
    CMC_Integer(CMC_ObjectsContainer * scope, CMElement * element);

    int getValue() const { return value_; }
    void setValue(int value) {
        value_ = value;
        if (!isQuiet()) onChange(false);
    }
    void put(int value) { value_ = value; } // without onChange

    int asInteger() override { return value_; }
    double asDouble() override { return value_; }
    bool asBool() override { return value_ != 0; }
    CXString asString() override { return CXString::toString(value_); }
    void set(CMC_Variable * source) override { change(source->asInteger()); }
    void clear() override { change(0); }
    void swap(CMC_Variable * a, CMC_Variable * b) override;
    void inc() override;
    void dec() override;
    bool equals(CMC_Variable * other) override { return value_ == other->asInteger(); }
    int compare(CMC_Variable * other) override;
    CMC_Variable * calculate(CMC_Variable * right, int op) override;
    void setDefault(CMC_Variable * source) override { defaultValue_ = source->asInteger(); }
    void resetINI() override;
    int getBufferLen() override { return 8; }
    void netstore(void * buffer) override;
    bool netrestore(const void * buffer, int size) override;
    void store(CXArchive * archive) override;
    void restore(CXArchive * archive) override;
    void fromString(const CXString & text) override { value_ = text.toNumber(); }
    void copy(CMC_Variable * source) override { value_ = source->asInteger(); }
    CMC_Object * clone() override;

    static int calculated(int left, int right, int op) {
        if (op == op::kAdd) return convert::add(left, right);
        return calculatedOther(left, right, op);
    }

private:
    static int calculatedOther(int left, int right, int op);
    void change(int value);

    int value_ = 0;
    int defaultValue_ = 0;
};

inline int CMC_Variable::toInteger() {
    return getType() == types::kInteger ? static_cast<CMC_Integer *>(this)->getValue() : asInteger();
}
