#pragma once

// The statements that begin with "@". Their object is the behaviour that holds the statement.

#include "script/CMC_Runner.h"

class CMC_Dummy_Runner : public CMC_Runner {
public:
    CMC_Dummy_Runner();
};
