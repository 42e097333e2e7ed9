#include "input/CDXMouse.h"

#include "app/CWindow.h"
#include "platform/World.h"

#include <utility>

using platform::Mouse;

namespace {

enum Kind { kMoved = 1, kLeftDown, kLeftUp, kMiddleDown, kMiddleUp, kRightDown, kRightUp };

// By the kinds, from 1.
constexpr int (CWindow::*kHandlers[])(CXPoint, int) = {
    nullptr,
    &CWindow::OnMouseMove,
    &CWindow::OnLButtonDown,
    &CWindow::OnLButtonUp,
    &CWindow::OnMButtonDown,
    &CWindow::OnMButtonUp,
    &CWindow::OnRButtonDown,
    &CWindow::OnRButtonUp,
};

// Any step may come; sums wrap around.
int plus(int a, int b) { return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b)); }

} // namespace

CDXMouse * CDXMouse::singleton = nullptr;

CDXMouse::CDXMouse(CWindow * window) : window_(window), device_(*platform::world().mouse) {
    singleton = this;
    device_.acquire();
    window_->addIPoller(this);
}

CDXMouse::~CDXMouse() {
    window_->removeIPoller(this);
    if (singleton == this) singleton = nullptr;
}

void CDXMouse::tick() {
    items_.clear();
    if (!device_.read(items_, kItems)) {
        device_.acquire(); // this tick has nothing; should it be lost still, the next one tries again
        return;
    }
    bool moved = false;
    auto button = [this](bool & state, const Mouse::Item & item, int down) {
        state = (item.value & Mouse::kDown) != 0;
        events_.push_back({state ? down : down + 1, position_});
    };
    for (const Mouse::Item & each : items_) switch (each.part) {
        case Mouse::kAxisX:
        case Mouse::kAxisY: {
            int & axis = each.part == Mouse::kAxisX ? position_.x : position_.y;
            axis = plus(axis, each.value);
            moved = true;
            break;
        }
        case Mouse::kLeft: button(leftDown_, each, kLeftDown); break;
        case Mouse::kMiddle: button(middleDown_, each, kMiddleDown); break;
        case Mouse::kRight: button(rightDown_, each, kRightDown); break;
        }
    if (moved) events_.push_back({kMoved, position_});
}

void CDXMouse::flushSignals(bool deliver) {
    // Handlers may end up here again: each event is told once.
    for (const Event & each : std::exchange(events_, {}))
        if (deliver) (window_->*kHandlers[each.kind])(each.point, 0);
}
