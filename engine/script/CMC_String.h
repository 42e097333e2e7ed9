#pragma once

// STRING: bytes of Windows-1250. Equal without regard to case, ordered with it.

#include "script/CMC_Variable.h"

#include <cstdint>

class CMC_String : public CMC_Variable {
public:
    static constexpr std::int64_t kMost = 64 << 20; // bytes that an operation may make of a text

    // Whether a text of that length may be made; if not, the log says so.
    static bool fits(std::int64_t length);

    explicit CMC_String(const CXString & name, int poolIndex = -1)
        : CMC_Variable(name, types::kString, poolIndex) {}
    CMC_String(const CXString & value, const CXString & name) : CMC_String(name) { value_ = value; }
    CMC_String(CMC_ObjectsContainer * scope, CMElement * element);

    const CXString & getValue() const { return value_; }
    void setValue(const CXString & value) {
        value_ = value;
        onChange(false);
    }
    void put(std::string_view value); // without onChange

    int asInteger() override { return value_.toNumber(); }
    double asDouble() override { return value_.toDouble(); }
    bool asBool() override { return value_.toBool(); }
    CXString asString() override { return value_; }
    void set(CMC_Variable * source) override;
    void clear() override { change({}); }
    void swap(CMC_Variable * a, CMC_Variable * b) override;
    void inc() override {}
    void dec() override {}
    bool equals(CMC_Variable * other) override;
    int compare(CMC_Variable * other) override;
    CMC_Variable * calculate(CMC_Variable * right, int op) override;
    void setDefault(CMC_Variable * source) override { defaultValue_ = source->asString(); }
    void resetINI() override;
    int getBufferLen() override { return value_.getLength() + 5; }
    void netstore(void * buffer) override;
    bool netrestore(const void * buffer, int size) override;
    void store(CXArchive * archive) override;
    void restore(CXArchive * archive) override;
    void fromString(const CXString & text) override { value_ = text; }
    void copy(CMC_Variable * source) override { value_ = source->asString(); }
    CMC_Object * clone() override;
    virtual void upper() { value_.Upper(); } // no signal

private:
    void change(const CXString & value);

    CXString value_;
    CXString defaultValue_;
};
