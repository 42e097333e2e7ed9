#pragma once

// The standard thing to click on: a region with pictures for its states, which it shows and hides, and
// sounds. The pictures stay their scene's; one that ends is forgotten, one that is loaded anew is taken over.
// Owned by its script object. Main thread.

#include "core/CXRect.h"
#include "core/CXString.h"
#include "graphics/CInvalidateObserver.h"
#include "input/CControl.h"
#include "script/Lifetime.h"

#include <array>
#include <memory>

class CGraphicsObject;
class CHotSpot;
class CMC_Button;
class CPlayable;
class CUnit6;

class CButton : public CControl, public CInvalidateObserver {
public:
    enum _soundtype { kSoundStandard, kSoundOnMove, kSoundOnClick };
    enum Picture { kStandard, kOnMove, kOnClick, kAccent, kPictures };
    static constexpr const char * kAnyKey = "<ANY>"; // as key word

    // notifier may be null.
    CButton(CWindow * window, CXRect rect, int priority, CControlNotifier * notifier);
    CButton(const CButton &) = delete;
    CButton & operator=(const CButton &) = delete;
    ~CButton() override;

    CButton * clone() override; // the same region, pictures and state, without notifiers and owners

    // ---- the region. Without any it is that of the standard picture.
    void SetRect(CXRect rect);
    void SetRegion(CGraphicsObject * graphics); // with its clear pixels left out
    CHotSpot * getHotSpot() const;

    // ---- pictures and sounds
    void Set(CGraphicsObject * picture) { setPicture(kStandard, picture); }
    void SetOnMove(CGraphicsObject * picture) { setPicture(kOnMove, picture); }
    void SetOnClick(CGraphicsObject * picture) { setPicture(kOnClick, picture); }
    void Accent(CGraphicsObject * picture, bool on); // on: it is shown from now on, not while pressed alone
    void Force(bool on);                             // shows the accent whatever the state
    void Freeze(bool on);                            // the pictures stay as they are
    CGraphicsObject * getPicture(Picture which) const { return pictures_[which]; } // null without
    void HideStandardWhileOnMove(bool on) { hideStandardOnMove_ = on; }
    CPlayable * GetSOOnMove() const { return getSound(kSoundOnMove); } // null without
    CPlayable * GetSOOnClick() const { return getSound(kSoundOnClick); }
    void LockSound(bool on) { soundLocked_ = on; }
    bool IsSoundLocked() const { return soundLocked_; }
    void SetPlaySoundOnlyWhenSilence(bool on) { playOnlyWhenSilent_ = on; }

    // ---- state
    void Enable(bool on);     // off: nothing is raised, and no picture is shown
    void DisableButVisible(); // off, with the standard picture
    void SYN();               // shows and hides the pictures by the state

    // ---- dragging: a press, then moves, take the picture along
    void EnableDragging(bool on) { draggingEnabled_ = on; }
    bool IsDraggingEnabled() const { return draggingEnabled_; }
    void SetDragging(CGraphicsObject * picture); // null: nothing follows
    CGraphicsObject * GetDragging() const { return dragging_; }
    CXPoint getClick() const { return click_; } // where it was pressed last

    // ---- what it tells its unit
    void setUnit(CUnit6 * unit) { unit_ = unit; }
    void setMCButton(CMC_Button * button);
    void setRetCode(int code) { retCode_ = code; }
    void EnableRetCode(bool on) { retCodeEnabled_ = on; }
    void setKeyWord(const CXString & word); // in capital letters; empty: none
    bool onKeyDown(int key) override;
    int onAction(CXPoint point) override;

    void onInvalidate(CGraphicsObject *, CXRect *) override {}
    void onDestroy(CGraphicsObject * object) override;
    void onReplaced(CGraphicsObject * object, CGraphicsObject * fresh) override;

private:
    class Spot;
    class Hand;

    void setPicture(Picture which, CGraphicsObject * picture);
    bool uses(const CGraphicsObject * object) const;
    void hold(CGraphicsObject * object);  // hears of its end
    void letGo(CGraphicsObject * object); // unless another field has it
    void takeStandardAsRegion();
    void show(bool all); // else those alone that the new state shows or hides: scripts have hidden others
    void turnOff();
    CPlayable * getSound(_soundtype which) const;
    void play(_soundtype which);
    bool isThere() const { return !button_ || owner_.get(); }
    bool isOtherDragged() const;
    bool isToDrag() const { return drags_ || (pressed_ && draggingEnabled_); }

    // Of the hot spot; 1 for what the button took.
    int OnMouseMove(CXPoint point);
    int OnFocusOn(CXPoint point);
    int OnFocusOff(CXPoint point);
    int OnClick(CXPoint point);
    int OnRelease(CXPoint point);
    // Of the pointer while it is pressed, wherever that is.
    void release(CXPoint point, bool isOver);
    void drag(CXPoint point);
    void endDrag(CXPoint point);

    std::unique_ptr<Spot> hotSpot_;
    std::unique_ptr<Hand> hand_;
    CXRect rect_;
    CGraphicsObject * region_ = nullptr; // not owned
    bool retCodeEnabled_ = false;
    int retCode_ = 0;
    bool soundLocked_ = false;
    bool hideStandardOnMove_ = false;
    std::array<CGraphicsObject *, kPictures> pictures_ = {}; // not owned
    std::array<bool, kPictures> shown_ = {};                 // by the state, whatever scripts did since
    CGraphicsObject * dragging_ = nullptr;                   // not owned
    bool draggingEnabled_ = false;
    bool playOnlyWhenSilent_ = false;
    CXPoint click_;
    CUnit6 * unit_ = nullptr;       // not owned
    CMC_Button * button_ = nullptr; // not owned: its owner
    life::Handle owner_;            // the same: a script may have removed it
    CXString keyWord_, typed_;
    bool inside_ = false, pressed_ = false;
    bool drags_ = false;
    bool seenDisabled_ = false; // the standard picture stays while it is disabled
    bool forced_ = false, frozen_ = false;
};
