#pragma once

// Methods of BEHAVIOUR.

#include "script/CMC_Runner.h"

class CMC_Behaviour_Runner : public CMC_Runner {
public:
    CMC_Behaviour_Runner();
};

namespace code {

// The texts of parameters from a position on, for $1, $2, ... of the code that is called: new CXArray of new
// CXString. The name of an object that is no value stands in quotes, so that the code doesn't read it as a
// variable's.
CXArray * arguments(const Call & call, int from);

} // namespace code
