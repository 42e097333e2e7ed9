#pragma once

// Methods of IMAGE.

#include "script/CMC_Runner.h"

class CMC_Image_Runner : public CMC_Runner {
public:
    CMC_Image_Runner();
};
