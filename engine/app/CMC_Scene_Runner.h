#pragma once

// Methods of SCENE.

#include "script/CMC_Runner.h"

class CMC_Scene_Runner : public CMC_Runner {
public:
    CMC_Scene_Runner();
};

namespace scenemethods {

// RUN of a scene and of an application: a method of a named object, with the parameters that follow.
CMC_Variable * run(Call & call);

} // namespace scenemethods
