#include "script/CMC_Quene_Runner.h"

#include "script/CMC_Quene.h"

namespace {

CMC_Quene & queue(const Call & call) { return *call.self<CMC_Quene>(); }

CMC_Variable * push(Call & call) {
    for (int i = 0; i < call.count(); i++)
        if (CMC_Variable * value = call.value(i)) queue(call).push(value);
    return nullptr;
}

CMC_Variable * pop(Call & call) { return queue(call).pop(); }

CMC_Variable * getSize(Call & call) { return result(queue(call).getSize()); }

CMC_Variable * isEmpty(Call & call) { return result(queue(call).isEmpty()); }

constexpr MethodRow kRows[] = {
    {1, "PUSH", "value ...", 1, push},
    {2, "POP", "", 0, pop},
    {3, "GETSIZE", "", 0, getSize},
    {4, "ISEMPTY", "", 0, isEmpty},
};

} // namespace

CMC_Quene_Runner::CMC_Quene_Runner() : CMC_Runner(kRows) {}
