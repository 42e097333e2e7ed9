#pragma once

// Methods of BUTTON.

#include "script/CMC_Runner.h"

class CMC_Button_Runner : public CMC_Runner {
public:
    CMC_Button_Runner();
};
