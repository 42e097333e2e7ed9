#include "input/CMC_Button_Runner.h"

#include "input/CHotSpot.h"
#include "input/CMC_Button.h"

namespace {

CMC_Button & self(const Call & call) { return *call.self<CMC_Button>(); }
CButton & button(const Call & call) { return *self(call).getButton(); }

CMC_Variable * setRect(Call & call) {
    if (call.count() < 4)
        self(call).setRegion(call.text(0));
    else
        button(call).SetRect({call.integer(0), call.integer(1), call.integer(2), call.integer(3)});
    return nullptr;
}

template <bool On>
CMC_Variable * enable(Call & call) {
    button(call).Enable(On);
    return nullptr;
}

template <bool On>
CMC_Variable * enableDragging(Call & call) {
    button(call).EnableDragging(On);
    return nullptr;
}

CMC_Variable * disableButVisible(Call & call) {
    button(call).DisableButVisible();
    return nullptr;
}

CMC_Variable * accent(Call & call) {
    self(call).accent(call.text(0), call.boolean(1));
    return nullptr;
}

template <CButton::Picture Which>
CMC_Variable * setPicture(Call & call) {
    self(call).setPicture(Which, call.text(0));
    return nullptr;
}

template <CButton::Picture Which>
CMC_Variable * getPicture(Call & call) {
    return result(self(call).getPicture(Which));
}

CMC_Variable * setPriority(Call & call) {
    button(call).getHotSpot()->setPriority(call.integer(0));
    return nullptr;
}

CMC_Variable * getPriority(Call & call) { return result(button(call).getHotSpot()->getPriority()); }

CMC_Variable * syn(Call & call) {
    button(call).SYN();
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "SETRECT", "left, top, right, bottom | object name", 1, setRect},
    {2, "ENABLE", "", 0, enable<true>},
    {3, "DISABLE", "", 0, enable<false>},
    {4, "ENABLEDRAGGING", "", 0, enableDragging<true>},
    {5, "DISABLEDRAGGING", "", 0, enableDragging<false>},
    {6, "DISABLEBUTVISIBLE", "", 0, disableButVisible},
    {7, "ACCENT", "object name, on", 2, accent},
    {8, "SETSTD", "object name", 1, setPicture<CButton::kStandard>},
    {9, "SETONMOVE", "object name", 1, setPicture<CButton::kOnMove>},
    {10, "SETONCLICK", "object name", 1, setPicture<CButton::kOnClick>},
    {11, "GETSTD", "", 0, getPicture<CButton::kStandard>},
    {12, "GETONMOVE", "", 0, getPicture<CButton::kOnMove>},
    {13, "GETONCLICK", "", 0, getPicture<CButton::kOnClick>},
    {14, "SETPRIORITY", "priority", 1, setPriority},
    {15, "GETPRIORITY", "", 0, getPriority},
    {16, "SYN", "", 0, syn},
};

} // namespace

CMC_Button_Runner::CMC_Button_Runner() : CMC_Runner(kRows) {}
