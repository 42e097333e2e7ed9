#pragma once

// The object SYSTEM, through which scripts reach clock, machine and files. Owned by its scope.

#include "script/CMC_Object.h"

class CMC_System : public CMC_Object {
public:
    explicit CMC_System(CMC_ObjectsContainer * scope);

    CMC_Runner * getRunner() override;
};
