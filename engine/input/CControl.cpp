#include "input/CControl.h"

#include "input/CControlNotifier.h"

#include <vector>

void CControl::addNotifier(CControlNotifier * notifier) {
    if (!notifiers_.contains(notifier)) notifiers_.add(notifier);
}

void CControl::removeNotifier(CControlNotifier * notifier) { notifiers_.remove(notifier); }

// To those of this moment that are still there when their turn comes.
int CControl::tell(void (CControlNotifier::*what)(CControl *, CXPoint), CXPoint point) {
    for (void * each : std::vector<void *>(notifiers_.begin(), notifiers_.end()))
        if (notifiers_.contains(each)) (static_cast<CControlNotifier *>(each)->*what)(this, point);
    return 0;
}

int CControl::onMouseMove(CXPoint point) { return tell(&CControlNotifier::onControlOnMove, point); }
int CControl::onFocusOn(CXPoint point) { return tell(&CControlNotifier::onControlFocusOn, point); }
int CControl::onFocusOff(CXPoint point) { return tell(&CControlNotifier::onControlFocusOff, point); }
int CControl::onClick(CXPoint point) { return tell(&CControlNotifier::onControlClicked, point); }
int CControl::onRelease(CXPoint point) { return tell(&CControlNotifier::onControlReleased, point); }
int CControl::onAction(CXPoint point) { return tell(&CControlNotifier::onControlAction, point); }
int CControl::onRClick(CXPoint point) { return tell(&CControlNotifier::onControlPopup, point); }
int CControl::onStartDragging(CXPoint point) { return tell(&CControlNotifier::onStartDragging, point); }
int CControl::onDragging(CXPoint point) { return tell(&CControlNotifier::onDragging, point); }
int CControl::onEndDragging(CXPoint point) { return tell(&CControlNotifier::onEndDragging, point); }
