#include "script/CMC_RunnerFactory.h"

#include "app/CMC_Application_Runner.h"
#include "app/CMC_CNVLoader_Runner.h"
#include "app/CMC_Episode_Runner.h"
#include "app/CMC_Scene_Runner.h"
#include "graphics/CMC_Animo_Runner.h"
#include "graphics/CMC_Image_Runner.h"
#include "input/CMC_Button_Runner.h"
#include "input/CMC_Joystick_Runner.h"
#include "input/CMC_Keyboard_Runner.h"
#include "input/CMC_Mouse_Runner.h"
#include "script/CMC_Array_Runner.h"
#include "script/CMC_BasicCondition_Runner.h"
#include "script/CMC_Behaviour_Runner.h"
#include "script/CMC_Dummy_Runner.h"
#include "script/CMC_Groupped_Runner.h"
#include "script/CMC_MultiArray_Runner.h"
#include "script/CMC_Object.h"
#include "script/CMC_Quene_Runner.h"
#include "script/CMC_Rand_Runner.h"
#include "script/CMC_System_Runner.h"
#include "script/CMC_Timer_Runner.h"
#include "script/CMC_Variable_Runner.h"
#include "script/CMC_Vector_Runner.h"
#include "script/Types.h"
#include "sound/CMC_Sound_Runner.h"

#include <initializer_list>
#include <memory>
#include <vector>

namespace {

std::vector<std::unique_ptr<CMC_Runner>> runners;
std::vector<CMC_Runner *> byType; // null for a type without one

template <class Runner>
void add(std::initializer_list<int> ids) {
    runners.push_back(std::make_unique<Runner>());
    runners.back()->prepareMthHashSet();
    for (int id : ids) {
        auto place = static_cast<std::size_t>(id);
        if (byType.size() <= place) byType.resize(place + 1);
        byType[place] = runners.back().get();
    }
}

} // namespace

void CMC_RunnerFactory::initialize() {
    if (!runners.empty()) return;
    add<CMC_Dummy_Runner>({0});
    add<CMC_Variable_Runner>(
        {types::kInteger, types::kString, types::kBool, types::kDouble, types::kExpression});
    add<CMC_BasicCondition_Runner>({types::kCondition, types::kComplexCondition});
    add<CMC_Behaviour_Runner>({types::kBehaviour});
    add<CMC_Rand_Runner>({types::kRandom});
    add<CMC_Timer_Runner>({types::kTimer});
    add<CMC_Sound_Runner>({types::kSound});
    add<CMC_Vector_Runner>({types::kVector});
    add<CMC_Quene_Runner>({types::kFifo, types::kLifo});
    add<CMC_Groupped_Runner>({types::kGroup});
    add<CMC_Array_Runner>({types::kArray});
    add<CMC_MultiArray_Runner>({types::kMultiArray});
    add<CMC_System_Runner>({types::kSystem});
    add<CMC_Animo_Runner>({types::kAnimo});
    add<CMC_Image_Runner>({types::kImage});
    add<CMC_Mouse_Runner>({types::kMouse});
    add<CMC_Keyboard_Runner>({types::kKeyboard});
    add<CMC_Joystick_Runner>({types::kJoystick});
    add<CMC_Button_Runner>({types::kButton});
    add<CMC_Application_Runner>({types::kApplication});
    add<CMC_Episode_Runner>({types::kEpisode});
    add<CMC_Scene_Runner>({types::kScene});
    add<CMC_CNVLoader_Runner>({types::kCnvLoader});
}

void CMC_RunnerFactory::done() {
    byType.clear();
    runners.clear();
}

CMC_Runner * CMC_RunnerFactory::getRunner(int type) {
    auto place = static_cast<std::size_t>(type);
    return type >= 0 && place < byType.size() ? byType[place] : nullptr;
}

CMC_Runner * CMC_RunnerFactory::runnerOf(CMC_Object * object) {
    CMC_Runner * runner = getRunner(object->getType());
    return runner ? runner : object->getRunner();
}
