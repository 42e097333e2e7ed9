#pragma once

// The root of nearly every class: an error code, a mark for objects at the end of their life, and the
// operations that the containers ask of what they hold.

#include "core/CError.h"
#include "core/CXString.h"

#include <cstdint>

class CMessage;
class CStringHashCode;

class CXObject : public CError {
public:
    CXObject() = default;
    CXObject(const CXObject &) = default;
    CXObject & operator=(const CXObject &) = default;
    virtual ~CXObject() = default;

    virtual bool isToDelete() { return toDelete_; }
    virtual void setToDelete() { toDelete_ = true; } // for good: nothing clears it
    virtual int getHashcode();                       // the object's own address
    virtual bool equals(CXObject * other) { return this == other; }
    // 1 for the same object, else 0: this orders nothing. What goes into a CSortedVector replaces it.
    virtual int compare(CXObject * other) { return this == other ? 1 : 0; }
    virtual CXObject * clone() { return nullptr; }
    virtual CXString toString() { return {}; }
    virtual void notifyMessageReceive(CMessage *) {}
    virtual int processMessage(CMessage *) { return 0; }

    // This object as a text key, or null. CHashtable asks it once a lookup, instead of two virtual calls.
    virtual const CStringHashCode * asStringKey() const { return nullptr; }

    void setErrorCode(int code) { errorCode_ = code; }
    int LastError() const { return errorCode_; }

    static short swap_word(short value);
    static int swap_dword(int value);

    // A line for the log, and with the flag for the debugger channel too. The text brings its line end.
    void log(const char * text, bool toDebugger);

    // Measures one stretch of code at a time: with a name it starts, with null it ends and reports the
    // milliseconds to the debugger channel and, with the flag, to the log.
    static void profile(const char * name, bool toLog);

private:
    int errorCode_ = 0;
    bool toDelete_ = false;
};
