#pragma once

// KEYBOARD: tells scripts of keys and keeps what was typed last. Owned by its scope. Main thread.

#include "app/Listeners.h"
#include "core/Queues.h"
#include "script/CMC_Object.h"

class CKeyboard;
class CWindow;

class CMC_Keyboard : public CMC_Object, public CKeyListener {
public:
    static constexpr int kLatestKeys = 100; // kept; older ones go
    static const char * const kSignals[6];
    static constexpr std::span<const char * const> kKeys = {};
    enum Signal { kOnChar = 3, kOnKeyDown, kOnKeyUp };

    CMC_Keyboard(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Keyboard() override;

    bool done(bool all) override;
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;

    bool onKeyUp(int code) override;
    bool onKeyDown(int code) override;
    bool onChar(unsigned char c) override;

    void enable(bool on) { enabled_ = on; }
    bool isEnabled() const { return enabled_; }
    CKeyboard * getKeyboard() const;                       // the window's; null in scopes without one
    CXFifoQuene * getLatestKeys() { return &latestKeys_; } // of CInteger, owned; the last one typed last
    CXString getLatestKeys(int count);                     // at most so many characters, in their order

    static CXString
    getKeySignal(int code); // the qualifier of a key's signals, empty for a key without a name
    // The object of that name in a scope around takes every element's bindings.
    static CMC_Object * mergesWith(CMC_ObjectsContainer * scope, CMElement * element);

private:
    void raise(int signal, const CXString & qualifier);

    CWindow * window_; // not owned
    bool enabled_ = true;
    CXFifoQuene latestKeys_;
};
