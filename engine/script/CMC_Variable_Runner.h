#pragma once

// The methods of INTEGER, DOUBLE, STRING and BOOL, and of EXPRESSION, where they act on a copy of its value.
// A method meant for one type reads another's value in the form that it needs, and the receiver takes what
// it can hold of the outcome.

#include "script/CMC_Runner.h"

class CMC_Variable_Runner : public CMC_Runner {
public:
    CMC_Variable_Runner();
};
