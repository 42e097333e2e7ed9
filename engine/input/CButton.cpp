#include "input/CButton.h"

#include "app/CMC_Scene.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "graphics/CGraphicsObject.h"
#include "input/CHotSpot.h"
#include "input/CKeyboard.h"
#include "input/CMC_Button.h"
#include "sequence/CPlayable.h"

#include <algorithm>
#include <utility>

class CButton::Spot : public CHotSpot {
public:
    Spot(CWindow * window, int priority, CButton & button)
        : CHotSpot(window, nullptr, kMove, priority, nullptr), button_(button) {}
    int OnMouseMove(CXPoint point, int, void *) override { return button_.OnMouseMove(point); }
    int OnLButtonDown(CXPoint point, int, void *) override { return button_.OnClick(point); }
    int OnLButtonUp(CXPoint point, int, void *) override { return button_.OnRelease(point); }
    int OnRButtonDown(CXPoint point, int, void *) override { return button_.onRClick(point); }
    int OnFocusOn(CXPoint point, int, void *) override { return button_.OnFocusOn(point); }
    int OnFocusOff(CXPoint point, int, void *) override { return button_.OnFocusOff(point); }

private:
    CButton & button_;
};

// While the button is pressed: the hot spot hears nothing of a pointer that left it.
class CButton::Hand : public CMouseListener {
public:
    explicit Hand(CButton & button) : button_(button) {}
    bool onMouseMove(CXPoint point) override {
        if (button_.isThere() && button_.isToDrag()) button_.drag(point);
        return false;
    }
    bool onClick(CXPoint point) override { // only while something is dragged until the next click
        if (button_.isThere() && button_.drags_ && !button_.pressed_) button_.endDrag(point);
        return false;
    }
    using CMouseListener::onClick;
    bool onRelease(CXPoint point) override {
        if (button_.isThere() && button_.pressed_) button_.release(point, false);
        return false;
    }
    using CMouseListener::onRelease;

private:
    CButton & button_;
};

namespace {

constexpr int kHandPriority = CWindow::kCapturePriority + 1; // hears of the pointer before all others

// A picture may be one that is loaded when it is first shown.
void appear(CGraphicsObject * picture) {
    if (auto * playable = dynamic_cast<CPlayable *>(picture))
        playable->show();
    else if (picture)
        picture->Visible(true);
}

} // namespace

CButton::CButton(CWindow * window, CXRect rect, int priority, CControlNotifier * notifier)
    : CControl(window),
      hotSpot_(std::make_unique<Spot>(window, priority, *this)),
      hand_(std::make_unique<Hand>(*this)) {
    SetRect(rect);
    if (notifier) addNotifier(notifier);
}

CButton::~CButton() {
    if (window_) {
        window_->removeMouseListener(hand_.get());
        window_->removeKeyListener(this);
    }
    auto end = [this](CGraphicsObject * object) {
        if (object) object->removeInvalidateObserver(this);
    };
    std::ranges::for_each(pictures_, end);
    end(dragging_);
    end(region_);
}

CButton * CButton::clone() {
    auto * copy = new CButton(window_, rect_, hotSpot_->getPriority(), nullptr);
    copy->SetID(getId());
    copy->SetFlags(GetFlags());
    copy->retCodeEnabled_ = retCodeEnabled_;
    copy->retCode_ = retCode_;
    copy->soundLocked_ = soundLocked_;
    copy->hideStandardOnMove_ = hideStandardOnMove_;
    copy->playOnlyWhenSilent_ = playOnlyWhenSilent_;
    copy->draggingEnabled_ = draggingEnabled_;
    copy->unit_ = unit_;
    copy->seenDisabled_ = seenDisabled_;
    copy->forced_ = forced_;
    copy->frozen_ = true; // nothing changes by a copy
    copy->CControl::Enable(IsEnabled());
    copy->hotSpot_->Enable(IsEnabled());
    for (int i = 0; i < kPictures; i++)
        copy->setPicture(static_cast<Picture>(i), pictures_[static_cast<std::size_t>(i)]);
    copy->SetDragging(dragging_);
    if (region_) copy->SetRegion(region_);
    copy->frozen_ = frozen_;
    copy->setKeyWord(keyWord_);
    return copy;
}

CHotSpot * CButton::getHotSpot() const { return hotSpot_.get(); }

// ------------------------------------------------------------------------------------------- what it is of

void CButton::SetRect(CXRect rect) {
    letGo(std::exchange(region_, nullptr));
    rect_ = rect;
    hotSpot_->Set(nullptr, true);
    hotSpot_->SetActiveRect(rect, CHotSpot::kMove, hotSpot_->getPriority());
    takeStandardAsRegion();
}

void CButton::SetRegion(CGraphicsObject * graphics) {
    letGo(std::exchange(region_, graphics));
    hold(graphics);
    rect_.Empty();
    hotSpot_->Set(graphics, true);
}

void CButton::takeStandardAsRegion() {
    if (!region_ && rect_.IsEmpty()) hotSpot_->Set(pictures_[kStandard], true);
}

void CButton::setPicture(Picture which, CGraphicsObject * picture) {
    CGraphicsObject * old = std::exchange(pictures_[which], picture);
    if (old == picture) return;
    hold(picture);
    if (old && !frozen_ && std::ranges::find(pictures_, old) == pictures_.end()) old->Visible(false);
    letGo(old);
    takeStandardAsRegion();
    SYN();
}

void CButton::SetDragging(CGraphicsObject * picture) {
    letGo(std::exchange(dragging_, picture));
    hold(picture);
}

bool CButton::uses(const CGraphicsObject * object) const {
    return object == region_ || object == dragging_ || std::ranges::count(pictures_, object) > 0;
}

void CButton::hold(CGraphicsObject * object) {
    if (object) object->addInvalidateObserver(this);
}

void CButton::letGo(CGraphicsObject * object) {
    if (object && !uses(object)) object->removeInvalidateObserver(this);
}

void CButton::onDestroy(CGraphicsObject * object) {
    std::ranges::replace(pictures_, object, nullptr);
    if (dragging_ == object) dragging_ = nullptr;
    if (region_ == object) region_ = nullptr;
}

void CButton::onReplaced(CGraphicsObject * object, CGraphicsObject * fresh) {
    std::ranges::replace(pictures_, object, fresh);
    if (dragging_ == object) dragging_ = fresh;
    if (region_ == object) region_ = fresh;
    object->removeInvalidateObserver(this);
    hold(fresh);
}

void CButton::setMCButton(CMC_Button * button) {
    button_ = button;
    owner_ = life::Handle(button);
    hotSpot_->setMCButton(button);
}

CPlayable * CButton::getSound(_soundtype which) const { return button_ ? button_->getSound(which) : nullptr; }

void CButton::play(_soundtype which) {
    CPlayable * sound = soundLocked_ ? nullptr : getSound(which);
    if (!sound || (playOnlyWhenSilent_ && sound->isPlaying())) return;
    sound->play();
}

// ------------------------------------------------------------------------------------------------ its state

// Under the pointer the standard picture stays beneath; pressed, the picture for it takes the place of that
// for the pointer.
void CButton::show(bool all) {
    bool isOver = IsEnabled() && inside_;
    Picture top = kStandard;
    if (isOver && pressed_ && pictures_[kAccent])
        top = kAccent;
    else if (isOver && pressed_ && pictures_[kOnClick])
        top = kOnClick;
    else if (isOver && pictures_[kOnMove])
        top = kOnMove;
    bool isSeen = IsEnabled() || seenDisabled_;
    std::array<bool, kPictures> shown = {};
    shown[top] = isSeen;
    shown[kStandard] = isSeen && (top == kStandard || !hideStandardOnMove_);
    shown[kAccent] = shown[kAccent] || (forced_ && IsEnabled());
    const std::array<bool, kPictures> before = std::exchange(shown_, shown);
    if (frozen_) return;
    for (CGraphicsObject * picture : pictures_) {
        if (!picture) continue;
        auto isIn = [&](const std::array<bool, kPictures> & state) { // in any of the places that it has
            bool is = false;
            for (std::size_t i = 0; i < kPictures; i++) is = is || (state[i] && pictures_[i] == picture);
            return is;
        };
        bool wanted = isIn(shown);
        if (picture->isVisible() == wanted || (!all && isIn(before) == wanted)) continue;
        if (wanted)
            appear(picture);
        else
            picture->Visible(false);
    }
}

void CButton::SYN() { show(true); }

void CButton::Accent(CGraphicsObject * picture, bool on) {
    forced_ = on;
    setPicture(kAccent, picture);
    SYN();
}

void CButton::Force(bool on) {
    forced_ = on;
    SYN();
}

void CButton::Freeze(bool on) {
    frozen_ = on;
    SYN();
}

void CButton::Enable(bool on) {
    seenDisabled_ = false;
    if (!on) {
        turnOff();
        return;
    }
    CControl::Enable(true);
    hotSpot_->Enable(true);
    // The hot spot knows of a pointer that stayed.
    if (!pressed_) inside_ = hotSpot_->isUnderPointer();
    SYN();
}

void CButton::DisableButVisible() {
    seenDisabled_ = true;
    turnOff();
}

// What was begun ends without a word.
void CButton::turnOff() {
    CControl::Enable(false);
    hotSpot_->Enable(false);
    inside_ = pressed_ = false;
    if (std::exchange(drags_, false) && unit_) unit_->onEndDragging(click_);
    if (window_) window_->removeMouseListener(hand_.get());
    SYN();
}

// ----------------------------------------------------------------------------------------------- the pointer

// Moves over this button while another one's picture is dragged are that one's.
bool CButton::isOtherDragged() const { return !drags_ && unit_ && unit_->isDragging(); }

int CButton::OnMouseMove(CXPoint point) {
    if (!isThere() || !IsEnabled()) return 0;
    if (!std::exchange(inside_, true)) show(false); // it is back without the hot spot having lost it
    onMouseMove(point);
    if (isThere() && isToDrag()) drag(point);
    return isOtherDragged() ? 0 : 1;
}

int CButton::OnFocusOn(CXPoint point) {
    if (!isThere() || !IsEnabled()) return 0;
    inside_ = true;
    show(false);
    play(kSoundOnMove);
    int taken = isOtherDragged() ? 0 : 1;
    if (isThere()) onFocusOn(point); // a sound tells scripts too
    return taken;
}

// Not taken: others that the pointer left hear of it too.
int CButton::OnFocusOff(CXPoint point) {
    if (!isThere() || !IsEnabled()) return 0;
    inside_ = false;
    show(false);
    onFocusOff(point);
    return 0;
}

int CButton::OnClick(CXPoint point) {
    if (!isThere() || !IsEnabled() || !unit_ || !unit_->getScene()) return 0;
    if (drags_ && !pressed_) {
        endDrag(point);
        return 1;
    }
    for (Picture each : {kAccent, kOnClick, kOnMove})
        if (CGraphicsObject * picture = pictures_[each]) {
            if (!picture->testHit(point, false)) return 0;
            break;
        }
    inside_ = pressed_ = true;
    click_ = point;
    if (window_) window_->registerMouseListener(hand_.get(), kHandPriority);
    show(false);
    play(kSoundOnClick);
    if (isThere()) onClick(point);
    return 1;
}

int CButton::OnRelease(CXPoint point) {
    if (!isThere() || !pressed_) return 0;
    release(point, true);
    return 1;
}

// The hot spot counts the pointer as gone from here on, so the picture for it goes too.
void CButton::release(CXPoint point, bool isOver) {
    pressed_ = false;
    inside_ = false;
    bool staysDragged = drags_ && unit_ && unit_->getDraggingMode();
    if (window_ && !staysDragged) window_->removeMouseListener(hand_.get());
    show(false);
    onRelease(point);
    if (isOver && isThere() && hotSpot_->TestHit(point)) onAction(point);
    if (isThere() && !staysDragged) endDrag(point);
}

int CButton::onAction(CXPoint point) {
    if (retCodeEnabled_ && unit_) unit_->setRetCode(retCode_);
    return CControl::onAction(point);
}

void CButton::drag(CXPoint point) {
    if (!drags_) {
        if (point == click_ || !unit_) return;
        drags_ = true;
        unit_->onStartDragging(dragging_, click_, this);
        onStartDragging(point);
        if (!isThere() || !drags_) return;
    }
    unit_->onDragging(point);
    onDragging(point);
}

void CButton::endDrag(CXPoint point) {
    if (!std::exchange(drags_, false)) return;
    if (window_ && !pressed_) window_->removeMouseListener(hand_.get());
    unit_->onEndDragging(point);
    onEndDragging(point);
}

// ------------------------------------------------------------------------------------------------- keys

void CButton::setKeyWord(const CXString & word) {
    keyWord_ = word;
    typed_ = "";
    if (!window_) return;
    window_->removeKeyListener(this);
    if (word.IsString()) window_->registerKeyListener(this);
}

bool CButton::onKeyDown(int key) {
    bool matches = keyWord_ == kAnyKey;
    if (!matches) {
        int character = window_ ? window_->getKeyboard()->getChar(key) : 0;
        if (character == 0) return false;
        typed_ += static_cast<char>(character);
        typed_ = typed_.Right(std::max(typed_.getLength() - keyWord_.getLength(), 0));
        typed_.Upper();
        matches = typed_ == keyWord_;
    }
    if (matches && unit_ && retCodeEnabled_) unit_->setRetCode(retCode_);
    return false;
}
