#include "script/CMC_Behaviour_Runner.h"

#include "script/CMC_Behaviour.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/Control.h"
#include "script/Conversions.h"
#include "script/Notes.h"

namespace code {

CXArray * arguments(const Call & call, int from) {
    auto * list = new CXArray(101, 0.75F);
    for (int i = from; i < call.count(); i++) {
        CXString text = call.text(i);
        CMC_Object * object = call.scope->getObject(text);
        bool wrap = object && !types::isValue(object->getType()) && object->getType() != types::kNone;
        list->add(new CXString(wrap ? "\"" + text + "\"" : text));
    }
    return list;
}

} // namespace code

namespace {

CMC_Object * returned(const Call & call) { return call.scope->getObject("__RETURN__"); }

CMC_Variable * runOnce(Call & call, bool useCondition) {
    CXArray * args = code::arguments(call, 0);
    bool broken = call.self<CMC_Behaviour>()->run(nullptr, args, useCondition);
    CXString::releaseToVector(args);
    if (broken) return control::breakSignal();
    CMC_Object * value = returned(call);
    return value && types::isValue(value->getType())
               ? CMC_VariableFactory::copyVariable(static_cast<CMC_Variable *>(value))
               : nullptr;
}

CMC_Variable * run(Call & call) { return runOnce(call, false); }

CMC_Variable * runC(Call & call) { return runOnce(call, true); }

CMC_Variable * runLooped(Call & call) {
    int start = call.integer(0), end = convert::add(start, call.integer(1)), step = call.integer(2, 1);
    CXArray * args = code::arguments(call, 2);
    args->insertAt(0, new CXString);
    life::Handle behaviour(call.object);
    for (int v = start; v < end && behaviour.get() && CMC_Behaviour::nextTurn(); v = convert::add(v, step)) {
        *args->stringAt(0) = v;
        if (call.self<CMC_Behaviour>()->run(nullptr, args, true)) break;
    }
    CXString::releaseToVector(args);
    CMC_Object * value = returned(call);
    return value && types::isValue(value->getType()) ? static_cast<CMC_Variable *>(value) : nullptr;
}

CMC_Variable * breakTimer(Call & call) {
    call.self<CMC_Behaviour>()->_break();
    return nullptr;
}

CMC_Variable * enable(Call & call) {
    call.self<CMC_Behaviour>()->enable(true);
    return nullptr;
}

CMC_Variable * disable(Call & call) {
    call.self<CMC_Behaviour>()->enable(false);
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "RUN", "arguments ...", 0, run},
    {2, "RUNC", "arguments ...", 0, runC},
    {3, "RUNLOOPED", "start, count, step = 1, arguments ...", 2, runLooped},
    {4, "BREAK", "", 0, breakTimer},
    {5, "ENABLE", "", 0, enable},
    {6, "DISABLE", "", 0, disable},
};

} // namespace

CMC_Behaviour_Runner::CMC_Behaviour_Runner() : CMC_Runner(kRows) {}
