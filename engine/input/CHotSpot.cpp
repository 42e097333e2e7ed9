#include "input/CHotSpot.h"

#include "app/CWindow.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <utility>

CXVector * CHotSpot::pHSList = nullptr;
CWindow * CHotSpot::m_pWindow = nullptr;
int CHotSpot::minPriority = CHotSpot::kLowest;
int CHotSpot::maxPriority = CHotSpot::kHighest;
CXPoint CHotSpot::pointer;

namespace {

unsigned removals = 0; // hot spots that ever left the list

} // namespace

// The hot spots of one moment, one by one; those that a handler removed on the way are left out. As long as
// none was, nobody is looked for.
class CHotSpot::Walk {
public:
    explicit Walk(CXVector * list) {
        if (list) copy_.assign(list->begin(), list->end());
    }
    bool isThere(CXObject * hotSpot) const {
        return removals == removals_ || (pHSList && pHSList->contains(hotSpot));
    }
    CHotSpot * next() {
        while (i_ < copy_.size())
            if (CXObject * each = copy_[i_++]; isThere(each)) return static_cast<CHotSpot *>(each);
        return nullptr;
    }

private:
    std::vector<CXObject *> copy_;
    std::size_t i_ = 0;
    unsigned removals_ = removals;
};

CHotSpot::CHotSpot(CWindow * window) {
    initialize(window);
    add(this);
}

CHotSpot::CHotSpot(CWindow * window, CHotSpot * parent, _event, int priority, CMC_Button * button)
    : CHotSpot(window) {
    parent_ = parent;
    priority_ = priority;
    button_ = button;
}

CHotSpot::CHotSpot(CWindow * window, _event, int priority) : CHotSpot(window) { priority_ = priority; }

CHotSpot::~CHotSpot() {
    remove(this);
    if (graphics_) graphics_->removeInvalidateObserver(this);
    if (!pHSList) return;
    for (CXObject * each : *pHSList)
        if (auto * child = static_cast<CHotSpot *>(each); child->parent_ == this) child->parent_ = nullptr;
}

void CHotSpot::initialize(CWindow * window) {
    if (!m_pWindow) m_pWindow = window;
    if (pHSList) return;
    pHSList = new CXVector(101, 0.75F);
}

void CHotSpot::done() {
    removals++;
    delete std::exchange(pHSList, nullptr);
    m_pWindow = nullptr;
    minPriority = kLowest;
    maxPriority = kHighest;
}

void CHotSpot::add(CHotSpot * hotSpot) {
    if (pHSList) pHSList->add(hotSpot);
}

void CHotSpot::remove(CHotSpot * hotSpot) {
    removals++;
    if (pHSList) pHSList->remove(hotSpot);
}

void CHotSpot::Set(CGraphicsObject * graphics, bool pixelTest) {
    if (graphics_) graphics_->removeInvalidateObserver(this);
    graphics_ = graphics;
    if (graphics_) graphics_->addInvalidateObserver(this);
    pixelTest_ = pixelTest;
    activeRect_.Empty();
}

void CHotSpot::onDestroy(CGraphicsObject * object) {
    if (graphics_ == object) graphics_ = nullptr;
}

void CHotSpot::onReplaced(CGraphicsObject * object, CGraphicsObject * fresh) {
    if (graphics_ != object) return;
    object->removeInvalidateObserver(this);
    graphics_ = fresh;
    fresh->addInvalidateObserver(this);
}

void CHotSpot::SetActiveRect(CXRect rect, _event, int priority) {
    activeRect_ = rect;
    setPriority(priority);
}

bool CHotSpot::TestHit(CXPoint point) {
    if (!enabled_) return false;
    if (!activeRect_.IsEmpty()) return activeRect_.IsInRect(point);
    return graphics_ && graphics_->testHit(point, !pixelTest_);
}

void CHotSpot::Enable(bool on) {
    if (!on && !hovered_ && cursorEnabled_ && m_pWindow) m_pWindow->EndWaitCursor();
    enabled_ = on;
}

// ------------------------------------------------------------------------------------------- the dispatcher

CHotSpot * CHotSpot::findAt(CXVector * list, CXPoint point) {
    CHotSpot * found = nullptr;
    if (!list) return found;
    for (CXObject * item : *list) {
        auto * each = static_cast<CHotSpot *>(item);
        if (each->parent_ && !each->parent_->enabled_) continue;
        int priority = each->getPriority();
        if (!within(priority) || (found && priority <= found->getPriority())) continue;
        if (each->TestHit(point)) found = each;
    }
    return found;
}

int CHotSpot::OnMouseEvent(_event event, CXPoint point, int flags) {
    pointer = point;
    switch (event) {
    case kMove: return OnMouseMove(pHSList, point, flags);
    case kLeftDown: return OnLButtonDown(pHSList, point, flags);
    case kLeftUp: return OnLButtonUp(pHSList, point, flags);
    case kRightDown: return OnRButtonDown(pHSList, point, flags);
    default: return 0;
    }
}

int CHotSpot::OnMouseMove(CXVector * list, CXPoint point, int flags) {
    // What was left, but for hot spots outside the bounds: they stay as they were.
    Walk walk(list);
    while (CHotSpot * each = walk.next()) {
        if (!each->enabled_ || !each->hovered_ || !within(each->getPriority()) || each->TestHit(point))
            continue;
        if (each->cursorEnabled_) m_pWindow->EndWaitCursor();
        each->hovered_ = false;
        if (each->OnFocusOff(point, flags, each->owner_) > 0) break;
    }
    CHotSpot * hit = findAt(pHSList, point);
    if (!hit) return 0;
    if (hit->cursorEnabled_) m_pWindow->BeginActiveCursor();
    bool entered = !std::exchange(hit->hovered_, true);
    int result = hit->OnMouseMove(point, flags, hit->owner_);
    return entered && walk.isThere(hit) ? hit->OnFocusOn(point, flags, hit->owner_) : result;
}

int CHotSpot::OnLButtonDown(CXVector * list, CXPoint point, int flags) {
    CHotSpot * hit = findAt(list, point);
    if (!hit) return 0;
    hit->hovered_ = true;
    return hit->OnLButtonDown(point, flags, hit->owner_);
}

int CHotSpot::OnLButtonUp(CXVector * list, CXPoint point, int flags) {
    CHotSpot * hit = findAt(list, point);
    if (!hit) return 0;
    hit->hovered_ = false;
    return hit->OnLButtonUp(point, flags, hit->owner_);
}

int CHotSpot::OnRButtonDown(CXVector * list, CXPoint point, int flags) {
    Walk walk(list);
    while (CHotSpot * each = walk.next()) {
        if (!each->TestHit(point)) continue;
        if (each->cursorEnabled_) m_pWindow->EndWaitCursor();
        each->hovered_ = true;
        if (int result = each->OnRButtonDown(point, flags, each->owner_); result > 0) return result;
    }
    return 0;
}
