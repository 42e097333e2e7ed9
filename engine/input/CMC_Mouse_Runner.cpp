#include "input/CMC_Mouse_Runner.h"

#include "app/CWindow.h"
#include "input/CMC_Mouse.h"
#include "platform/World.h"

namespace {

using platform::Mouse;

CMC_Mouse & mouse(const Call & call) { return *call.self<CMC_Mouse>(); }

CXPoint point(const Call & call) { return {call.integer(0), call.integer(1)}; }

CXRect rect(const Call & call) {
    return {call.integer(0), call.integer(1), call.integer(2), call.integer(3)};
}

template <void (CWindow::*Method)()>
CMC_Variable * tell(Call & call) {
    if (CWindow * window = mouse(call).getWindow()) (window->*Method)();
    return nullptr;
}

template <bool On>
CMC_Variable * enable(Call & call) {
    if (CWindow * window = mouse(call).getWindow()) window->enableMouse(On);
    return nullptr;
}

template <bool On>
CMC_Variable * enableSignals(Call & call) {
    mouse(call).enableSignals(On);
    return nullptr;
}

CMC_Variable * getPosX(Call & call) { return result(mouse(call).getPosition().x); }
CMC_Variable * getPosY(Call & call) { return result(mouse(call).getPosition().y); }
CMC_Variable * getLastClickPosX(Call & call) { return result(mouse(call).getLastClick().x); }
CMC_Variable * getLastClickPosY(Call & call) { return result(mouse(call).getLastClick().y); }

CMC_Variable * set(Call & call) {
    const CXString cursor = call.text(0);
    mouse(call).set(cursor == "ARROW"    ? CMC_Mouse::kArrow
                    : cursor == "WAIT"   ? CMC_Mouse::kWait
                    : cursor == "ACTIVE" ? CMC_Mouse::kActive
                                         : cursor.toNumber());
    return nullptr;
}

CMC_Variable * setPosition(Call & call) {
    mouse(call).setPosition(point(call));
    return nullptr;
}

CMC_Variable * move(Call & call) {
    mouse(call).move(call.integer(0), call.integer(1));
    return nullptr;
}

// As if the button went there; any name but RIGHT is the left one.
template <int (CWindow::*Left)(CXPoint, int), int (CWindow::*Right)(CXPoint, int)>
CMC_Variable * press(Call & call) {
    CWindow * window = mouse(call).getWindow();
    if (!window) return nullptr;
    CXPoint place = point(call);
    if (call.text(2) == "RIGHT")
        (window->*Right)(place, 0);
    else
        (window->*Left)(place, 0);
    return nullptr;
}

CMC_Variable * setClipRect(Call & call) {
    CXRect r = rect(call);
    mouse(call).setClipRect(r.left, r.top, r.right, r.bottom);
    return nullptr;
}

CMC_Variable * lockActiveCursor(Call & call) {
    if (CWindow * window = mouse(call).getWindow()) window->lockActiveCursor(call.boolean(0));
    return nullptr;
}

template <Mouse::Part Button>
CMC_Variable * isDown(Call &) {
    return result(platform::world().mouse->isDown(Button));
}

CMC_Variable * setActiveRect(Call & call) {
    mouse(call).setActiveRect(rect(call));
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "SHOW", "", 0, tell<&CWindow::ShowCursor>},
    {2, "HIDE", "", 0, tell<&CWindow::HideCursor>},
    {3, "ENABLE", "", 0, enable<true>},
    {4, "DISABLE", "", 0, enable<false>},
    {5, "GETPOSX", "", 0, getPosX},
    {6, "GETPOSY", "", 0, getPosY},
    {7, "GETLASTCLICKPOSX", "", 0, getLastClickPosX},
    {8, "GETLASTCLICKPOSY", "", 0, getLastClickPosY},
    {9, "SET", "ARROW | WAIT | ACTIVE", 1, set},
    {10, "SETPOSITION", "x, y", 2, setPosition},
    {11, "MOVE", "dx, dy", 2, move},
    {12, "CLICK", "x, y, button = LEFT", 2, press<&CWindow::OnLButtonDown, &CWindow::OnRButtonDown>},
    {13, "MOUSERELEASE", "x, y, button = LEFT", 2, press<&CWindow::OnLButtonUp, &CWindow::OnRButtonUp>},
    {14, "ENABLESIGNAL", "", 0, enableSignals<true>},
    {15, "DISABLESIGNAL", "", 0, enableSignals<false>},
    {16, "SETCLIPRECT", "left, top, right, bottom", 4, setClipRect},
    {17, "LOCKACTIVECURSOR", "on", 1, lockActiveCursor},
    {18, "ISLBUTTONDOWN", "", 0, isDown<Mouse::kLeft>},
    {19, "ISRBUTTONDOWN", "", 0, isDown<Mouse::kRight>},
    {20, "SETACTIVERECT", "left, top, right, bottom", 4, setActiveRect},
};

} // namespace

CMC_Mouse_Runner::CMC_Mouse_Runner() : CMC_Runner(kRows) {}
