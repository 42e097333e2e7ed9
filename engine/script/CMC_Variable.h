#pragma once

// A script value: base of INTEGER, DOUBLE, STRING and BOOL (and of expressions, which stand for one).
// Every change goes through onChange, which raises the signals and keeps what is to be kept. A named value
// belongs to its scope; one with a pool index to the pools of CMC_VariableFactory. Main thread.

#include "script/CMC_Object.h"

class CXArchive;

namespace op {

// The operators of calculate and of expressions.
enum Code : int { kNone = 0, kAdd = 1, kSub = 2, kMul = 3, kDiv = 4, kMod = 5 };

} // namespace op

class CMC_Variable : public CMC_Object {
public:
    static const char * const kSignals[6];
    static const char * const kKeys[5];

    CMC_Variable(const CXString & name, int type, int id) : CMC_Object(name, type), id_(id) {}
    CMC_Variable(CMC_ObjectsContainer * scope, CMElement * element, int type);

    // The value in each form, by the conversions of the language.
    virtual int asInteger() = 0;
    inline int toInteger(); // the same, quicker for an INTEGER; in CMC_Integer.h
    virtual double asDouble() = 0;
    virtual bool asBool() = 0;
    virtual CXString asString() = 0;
    CXString toString() override { return asString(); }

    virtual void set(CMC_Variable * source) = 0;
    virtual void clear() = 0;
    // Takes the value of b when it holds that of a, else the value of a.
    virtual void swap(CMC_Variable * a, CMC_Variable * b) = 0;
    virtual void inc() = 0;
    virtual void dec() = 0;
    bool equals(CXObject * other) override { return equals(static_cast<CMC_Variable *>(other)); }
    int compare(CXObject * other) override { return compare(static_cast<CMC_Variable *>(other)); }
    // The other value counts converted to this one's type. compare gives -1, 0 or 1.
    virtual bool equals(CMC_Variable * other) = 0;
    virtual int compare(CMC_Variable * other) = 0;
    // This object for its own type; else it goes back to its pool and a pool value of the other type comes.
    // Null for a type that is no value's.
    virtual CMC_Variable * convert(int type);
    // A new pool value of this one's type.
    virtual CMC_Variable * calculate(CMC_Variable * right, int op) = 0;
    virtual void onChange(bool changed);
    virtual void onNetChange(CMC_Variable * source);
    virtual void setDefault(CMC_Variable * source) = 0;
    virtual void resetINI() = 0;
    // The message form of a value: int32 type id and the value, little-endian.
    virtual int getBufferLen() = 0;
    virtual void netstore(void * buffer) = 0;
    // Reads size bytes at most, the type id included; whether they held a value of this type.
    virtual bool netrestore(const void * buffer, int size) = 0;
    // The short form of arrays' files: store writes the int type id and the value, restore reads a value.
    virtual void store(CXArchive *) {}
    virtual void restore(CXArchive *) {}
    virtual void fromString(const CXString & text) = 0; // without a signal
    // The value of another of the same type, without a signal.
    virtual void copy(CMC_Variable * source) = 0;

    void init() override;
    CMC_Runner * getRunner() override;
    SignalList getBehavioursList() override { return kSignals; }
    int getId() const { return id_; } // index in the pool, -1 outside
    // Of a pool's value: whether it is given out.
    bool isTaken() const { return taken_; }
    void setTaken(bool on) { taken_ = on; }
    bool isToIni() const { return toIni_; }
    bool isNetNotify() const { return netNotify_; }
    // Nothing sees a change but the value itself.
    bool isQuiet() const {
        return !isAnyBound(signalBit(kOnChanged) | signalBit(kOnBrutalChanged)) && !toIni_ && !netNotify_;
    }

    static bool isNumber(std::string_view text);
    // A pool value from the text of a literal.
    static CMC_Variable * resolve(std::string_view text);

    static constexpr int kOnChanged = 3, kOnBrutalChanged = 4, kOnNetChange = 5; // in kSignals

private:
    int id_;
    bool taken_ = false;
    bool toIni_ = false;
    bool netNotify_ = false;
    bool fromNet_ = false; // a change that came over the network isn't sent back
};
