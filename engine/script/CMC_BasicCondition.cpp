#include "script/CMC_BasicCondition.h"

#include "script/CMC_Behaviour.h"
#include "script/CMC_RunnerFactory.h"
#include "script/Notes.h"

#include <string>
#include <utility>

const char * const CMC_BasicCondition::kSignals[5] = {"ONINIT", "ONDONE", "ONSIGNAL", "ONRUNTIMESUCCESS",
                                                      "ONRUNTIMEFAILED"};

CMC_Runner * CMC_BasicCondition::getRunner() { return CMC_RunnerFactory::getRunner(types::kCondition); }

CMC_BasicCondition * CMC_BasicCondition::of(CMC_Object * object) {
    bool fits =
        object && (object->getType() == types::kCondition || object->getType() == types::kComplexCondition);
    return fits ? static_cast<CMC_BasicCondition *>(object) : nullptr;
}

bool CMC_BasicCondition::valid(bool fireSignals) {
    // Its behaviours may ask it again; without one in between the question would never end.
    int running = CMC_Behaviour::runningNo();
    if (askedAt_ == running) {
        notes::add(notes::Kind::tooDeep, std::string(getName().view()) + " depends on its own outcome");
        return false;
    }
    life::Guard guard;
    life::Handle self(this);
    int outer = std::exchange(askedAt_, running);
    Outcome outcome = test();
    if (fireSignals && outcome != Outcome::unknown && self.get())
        runFirstBinding(outcome == Outcome::yes ? "ONRUNTIMESUCCESS" : "ONRUNTIMEFAILED");
    askedAt_ = outer;
    return outcome == Outcome::yes;
}
