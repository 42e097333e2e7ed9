#include "script/CMC_Timer_Runner.h"

#include "script/CMC_Timer.h"

namespace {

template <void (CMC_Timer::*Method)()>
CMC_Variable * plain(Call & call) {
    (call.self<CMC_Timer>()->*Method)();
    return nullptr;
}

template <void (CMC_Timer::*Method)(int)>
CMC_Variable * withNumber(Call & call) {
    (call.self<CMC_Timer>()->*Method)(call.integer(0));
    return nullptr;
}

CMC_Variable * getTicks(Call & call) { return result(call.self<CMC_Timer>()->getTicks()); }

constexpr MethodRow kRows[] = {
    {1, "ENABLE", "", 0, plain<&CMC_Timer::enable>},
    {2, "DISABLE", "", 0, plain<&CMC_Timer::disable>},
    {3, "PAUSE", "", 0, plain<&CMC_Timer::pause>},
    {4, "RESUME", "", 0, plain<&CMC_Timer::resume>},
    {5, "GETTICKS", "", 0, getTicks},
    {6, "RESET", "", 0, plain<&CMC_Timer::reset>},
    {7, "SET", "ticks", 1, withNumber<&CMC_Timer::set>},
    {8, "SETELAPSE", "milliseconds", 1, withNumber<&CMC_Timer::setElapse>},
};

} // namespace

CMC_Timer_Runner::CMC_Timer_Runner() : CMC_Runner(kRows) {}
