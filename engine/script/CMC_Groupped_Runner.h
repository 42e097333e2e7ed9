#pragma once

// The methods of GROUP. What it doesn't know goes to every member.

#include "script/CMC_Runner.h"

class CMC_Groupped_Runner : public CMC_Runner {
public:
    CMC_Groupped_Runner();

    using CMC_Runner::run;
    CMC_Variable * run(const CXString & name, CMC_Object * object, CMC_ObjectsContainer * scope,
                       CXVector * params) override;
};
