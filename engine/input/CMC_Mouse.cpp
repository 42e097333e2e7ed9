#include "input/CMC_Mouse.h"

#include "app/CWindow.h"
#include "graphics/CRefreshScreen.h"
#include "platform/World.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"

const char * const CMC_Mouse::kSignals[7] = {"ONINIT",  "ONDONE",    "ONSIGNAL",  "ONMOVE",
                                             "ONCLICK", "ONRELEASE", "ONDBLCLICK"};
CXRect CMC_Mouse::clipRect;

namespace {

// Where the window's pixels begin on the screen.
CXPoint origin(CWindow * window) {
    CRefreshScreen * canvas = window ? window->getCanvas() : nullptr;
    return canvas ? canvas->GetPosition() : CXPoint();
}

} // namespace

CMC_Mouse::CMC_Mouse(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kMouse), window_(scope ? scope->getWindow() : nullptr) {
    if (window_) window_->registerMouseListener(this, kPriority);
    initializeBehaviours(scope, element);
}

CMC_Mouse::~CMC_Mouse() {
    if (window_) window_->removeMouseListener(this);
}

CMC_Runner * CMC_Mouse::getRunner() { return CMC_RunnerFactory::getRunner(types::kMouse); }

bool CMC_Mouse::done(bool all) {
    bool ended = CMC_Object::done(all);
    if (window_) window_->removeMouseListener(this);
    return ended;
}

CMC_Object * CMC_Mouse::mergesWith(CMC_ObjectsContainer * scope, CMElement * element) {
    if (element->getName() != "MOUSE") return nullptr;
    return scope->getObject("MOUSE");
}

// ------------------------------------------------------------------------------------------------- signals

const char * CMC_Mouse::getButton(int button) {
    constexpr const char * kNames[] = {"LEFT", "MIDDLE", "RIGHT"};
    return button >= 0 && button < 3 ? kNames[button] : "";
}

void CMC_Mouse::raise(int signal, int button) {
    if (!enabled_ || !signalsEnabled_ || !isSignalBound(signal)) return;
    const CXString name = kSignals[signal];
    life::Alive alive(this);
    onSignal(name + "^" + getButton(button));
    if (alive) onSignal(name);
}

bool CMC_Mouse::onMouseMove(CXPoint point) {
    position_ = point;
    if (counts(point) && enabled_ && isSignalBound(kOnMove)) onSignal("ONMOVE");
    return false;
}

bool CMC_Mouse::onClick(int button, CXPoint point) {
    lastClick_ = point;
    if (counts(point)) raise(kOnClick, button);
    return false;
}

bool CMC_Mouse::onRelease(int button, CXPoint point) {
    lastClick_ = point;
    if (counts(point)) raise(kOnRelease, button);
    return false;
}

bool CMC_Mouse::onDblClick(CXPoint point) {
    if (counts(point) && enabled_ && signalsEnabled_ && isSignalBound(kOnDblClick)) onSignal("ONDBLCLICK");
    return false;
}

// ----------------------------------------------------------------------------------------------- the pointer

void CMC_Mouse::set(int cursor) {
    if (!window_) return;
    if (cursor == kArrow) window_->EndWaitCursor();
    if (cursor == kWait) window_->BeginWaitCursor();
    if (cursor == kActive) window_->BeginActiveCursor();
}

void CMC_Mouse::setPosition(CXPoint point) {
    CXRect place = CXRect(point.x, point.y, 0, 0) + origin(window_); // wraps around
    platform::world().mouse->moveTo(place.left, place.top);
}

void CMC_Mouse::move(int dx, int dy) {
    platform::Mouse & mouse = *platform::world().mouse;
    CXRect place = CXRect(mouse.x(), mouse.y(), 0, 0) + CXPoint(dx, dy);
    mouse.moveTo(place.left, place.top);
}

void CMC_Mouse::setClipRect(int left, int top, int right, int bottom) {
    clipRect = CXRect(left, top, right, bottom) + origin(window_);
    platform::world().mouse->clip(clipRect.left, clipRect.top, clipRect.right, clipRect.bottom);
}

void CMC_Mouse::reset(bool forget) {
    if (forget) clipRect.Empty();
    platform::world().mouse->unclip();
}

void CMC_Mouse::restore() {
    platform::Mouse & mouse = *platform::world().mouse;
    if (clipRect.IsEmpty())
        mouse.unclip();
    else
        mouse.clip(clipRect.left, clipRect.top, clipRect.right, clipRect.bottom);
}
