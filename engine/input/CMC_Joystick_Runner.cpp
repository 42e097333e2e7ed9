#include "input/CMC_Joystick_Runner.h"

#include "input/CMC_Joystick.h"

namespace {

using platform::Joysticks;

CMC_Joystick & joystick(const Call & call) { return *call.self<CMC_Joystick>(); }

CMC_Variable * getButtonState(Call & call) { return result(joystick(call).getButtonState(call.integer(0))); }
CMC_Variable * getPosition(Call & call) { return result(joystick(call).getAxis(call.integer(0))); }
CMC_Variable * isLeft(Call & call) { return result(joystick(call).getAxis(0) <= -Joysticks::kFarEnd); }
CMC_Variable * isRight(Call & call) { return result(joystick(call).getAxis(0) >= Joysticks::kFarEnd); }

constexpr MethodRow kRows[] = {
    {1, "GETBUTTONSTATE", "button, from 0", 1, getButtonState},
    {2, "GETPOSITION", "axis, from 0", 1, getPosition},
    {3, "ISLEFT", "", 0, isLeft},
    {4, "ISRIGHT", "", 0, isRight},
};

} // namespace

CMC_Joystick_Runner::CMC_Joystick_Runner() : CMC_Runner(kRows) {}
