#pragma once

// Methods of MOUSE.

#include "script/CMC_Runner.h"

class CMC_Mouse_Runner : public CMC_Runner {
public:
    CMC_Mouse_Runner();
};
