#include "script/CMC_BasicCondition_Runner.h"

#include "script/CMC_BasicCondition.h"
#include "script/Control.h"

namespace {

bool valid(Call & call) { return call.self<CMC_BasicCondition>()->valid(call.boolean(0, true)); }

CMC_Variable * check(Call & call) { return result(valid(call)); }
CMC_Variable * breakIf(Call & call) { return valid(call) ? control::breakSignal() : nullptr; }
CMC_Variable * oneBreakIf(Call & call) { return valid(call) ? control::oneBreakSignal() : nullptr; }

constexpr MethodRow kRows[] = {
    {1, "CHECK", "fire = TRUE", 0, check},
    {2, "BREAK", "fire = TRUE", 0, breakIf},
    {3, "ONE_BREAK", "fire = TRUE", 0, oneBreakIf},
};

} // namespace

CMC_BasicCondition_Runner::CMC_BasicCondition_Runner() : CMC_Runner(kRows) {}
