#include "script/CMC_System.h"

#include "script/CMC_RunnerFactory.h"

CMC_System::CMC_System(CMC_ObjectsContainer * scope) : CMC_Object("SYSTEM", types::kSystem) {
    scene_ = scope;
}

CMC_Runner * CMC_System::getRunner() { return CMC_RunnerFactory::getRunner(types::kSystem); }
