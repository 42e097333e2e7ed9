#pragma once

// Methods of APPLICATION.

#include "script/CMC_Runner.h"

class CMC_Application_Runner : public CMC_Runner {
public:
    CMC_Application_Runner();
};
