#pragma once

// What CONDITION and COMPLEXCONDITION share: they are asked, and what is bound first to the signal of the
// outcome runs. Owned by its scope. Main thread.

#include "script/CMC_Object.h"

class CMC_BasicCondition : public CMC_Object {
public:
    static const char * const kSignals[5];

    CMC_BasicCondition(CMC_ObjectsContainer * scope, CMElement * element, int type)
        : CMC_Object(scope, element, type) {}

    // The outcome as of now; with fireSignals ONRUNTIMESUCCESS or ONRUNTIMEFAILED is raised. A condition
    // that comes to ask itself is false there.
    virtual bool valid(bool fireSignals);

    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;

    // The object as a condition; null for none and for other types.
    static CMC_BasicCondition * of(CMC_Object * object);

protected:
    enum class Outcome {
        no,
        yes,
        unknown, // false, and no signal is raised
    };
    virtual Outcome test() = 0;

private:
    int askedAt_ = -1; // how many behaviours ran when it was asked; -1 outside of valid
};
