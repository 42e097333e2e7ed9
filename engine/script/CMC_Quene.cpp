#include "script/CMC_Quene.h"

#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"

#include <utility>

const char * const CMC_Quene::kSignals[4] = {"ONINIT", "ONDONE", "ONSIGNAL", "ONEMPTY"};

CMC_Quene::CMC_Quene(CMC_ObjectsContainer * scope, CMElement * element, int type,
                     std::unique_ptr<CXQuene> queue)
    : CMC_Object(scope, element, type), queue_(std::move(queue)) {
    initializeBehaviours(scope, element);
}

CMC_Quene::~CMC_Quene() {
    for (CXObject * value : *queue_) delete value;
}

CMC_Runner * CMC_Quene::getRunner() { return CMC_RunnerFactory::getRunner(getType()); }

// A value of the pools would be taken anew while it waits here.
void CMC_Quene::push(CMC_Variable * value) {
    if (CXObject * copy = value->clone()) queue_->push(copy);
}

CMC_Variable * CMC_Quene::pop() {
    if (std::unique_ptr<CXObject> next{queue_->pop()})
        return CMC_VariableFactory::copyVariable(static_cast<CMC_Variable *>(next.get()));
    onSignal("ONEMPTY");
    return CMC_VariableFactory::string(std::string_view("NULL"));
}
