#include "script/CMC_MultiArray_Runner.h"

#include "core/Diagnostics.h"
#include "script/CMC_MultiArray.h"

namespace {

CMC_MultiArray & grid(const Call & call) { return *call.self<CMC_MultiArray>(); }

// The first count parameters.
std::vector<int> coordinates(const Call & call, int count) {
    std::vector<int> list;
    for (int i = 0; i < count; i++) list.push_back(call.integer(i));
    return list;
}

CMC_Variable * set(Call & call) {
    int last = call.count() - 1;
    if (CMC_Variable * value = call.value(last)) grid(call).set(coordinates(call, last), value);
    return nullptr;
}

CMC_Variable * get(Call & call) {
    const std::vector<int> place = coordinates(call, call.count());
    if (CMC_Variable * value = grid(call).get(place)) return CMC_VariableFactory::copyVariable(value);
    CXString text = "Attempting to access NULL element at position ( ";
    for (int each : place) text += CXString::toString(each) + " ";
    dispMsgBox(nullptr, text + " ) from array " + call.object->getName());
    return nullptr;
}

CMC_Variable * safeGet(Call & call) {
    CMC_Variable * value = grid(call).get(coordinates(call, call.count()));
    return value ? CMC_VariableFactory::copyVariable(value) : result(0);
}

CMC_Variable * getSize(Call & call) { return result(grid(call).getSize(call.integer(0))); }

CMC_Variable * count(Call & call) {
    CMC_Variable * value = call.value(0);
    return value ? result(grid(call).count(value)) : nullptr;
}

CMC_Variable * load(Call & call) {
    grid(call).load(call.text(0));
    return nullptr;
}

CMC_Variable * save(Call & call) {
    grid(call).save(call.text(0));
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "SET", "coordinate ..., value", 2, set},
    {2, "GET", "coordinate ...", 1, get},
    {3, "GETSIZE", "dimension", 1, getSize},
    {4, "COUNT", "value", 1, count},
    {5, "LOAD", "file name", 1, load},
    {6, "SAVE", "file name", 1, save},
    {7, "SAFEGET", "coordinate ...", 1, safeGet},
};

} // namespace

CMC_MultiArray_Runner::CMC_MultiArray_Runner() : CMC_Runner(kRows) {}
