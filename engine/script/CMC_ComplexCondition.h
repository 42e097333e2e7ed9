#pragma once

// COMPLEXCONDITION: two conditions, found by name whenever it is asked, joined by AND or OR. They are asked
// from the left, only as far as needed, and always raise their own signals. Main thread.

#include "script/CMC_BasicCondition.h"

class CMC_ComplexCondition : public CMC_BasicCondition {
public:
    static const char * const kKeys[3];

    CMC_ComplexCondition(CMC_ObjectsContainer * scope, CMElement * element);

protected:
    Outcome test() override;

private:
    enum OperatorCode : int { kNone = 0, kAnd = 1, kOr = 2 };

    CMC_BasicCondition * find(const CXString & name) const;

    CXString condition1_; // names
    CXString condition2_;
    CXString operator_;
    int operatorCode_ = kNone;
};
