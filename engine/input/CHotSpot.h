#pragma once

// A place on the screen that takes mouse events, by priority: a rectangle or what a pixel object covers. All
// hot spots stand in one list, which the window asks before its listeners. Owned by who made it. Main thread.

#include "core/CXObject.h"
#include "core/CXRect.h"
#include "core/CXVector.h"
#include "graphics/CInvalidateObserver.h"

#include <limits>
#include <vector>

class CGraphicsObject;
class CMC_Button;
class CUnit6;
class CWindow;

class CHotSpot : public CXObject, public CInvalidateObserver {
public:
    // The bounds of a new game: none.
    static constexpr int kLowest = std::numeric_limits<int>::min();
    static constexpr int kHighest = std::numeric_limits<int>::max();

    // Events as bits.
    enum _event {
        kMove = 1,
        kLeftDown = 2,
        kLeftUp = 4,
        kRightDown = 8,
        kRightUp = 0x10,
        kMiddleDown = 0x20,
        kMiddleUp = 0x40,
        kLeftDouble = 0x41,
    };

    explicit CHotSpot(CWindow * window);
    CHotSpot(CWindow * window, CHotSpot * parent, _event events, int priority, CMC_Button * button);
    CHotSpot(CWindow * window, _event events, int priority);
    CHotSpot(const CHotSpot &) = delete;
    CHotSpot & operator=(const CHotSpot &) = delete;
    ~CHotSpot() override;

    // What the dispatcher calls with the hot spot's owner as data; a result above 0 means taken. It never
    // calls those of the middle button, of right button up and of the double click, nor those of keys.
    virtual int OnMouseMove(CXPoint, int, void *) { return 0; }
    virtual int OnLButtonDown(CXPoint, int, void *) { return 0; }
    virtual int OnLButtonUp(CXPoint, int, void *) { return 0; }
    virtual int OnRButtonDown(CXPoint, int, void *) { return 0; }
    virtual int OnRButtonUp(CXPoint, int, void *) { return 0; }
    virtual int OnMButtonDown(CXPoint, int, void *) { return 0; }
    virtual int OnMButtonUp(CXPoint, int, void *) { return 0; }
    virtual int OnLButtonDblClk(CXPoint, int, void *) { return 0; }
    virtual int OnChar(int, int, void *) { return 0; }
    virtual int OnKeyDown(int, int, void *) { return 0; }
    virtual int OnKeyUp(int, int, void *) { return 0; }
    virtual void setPriority(int priority) { priority_ = priority; }
    virtual int getPriority() { return priority_; }
    virtual int OnDrag(CXPoint, int, void *) { return 0; }
    virtual int OnFocusOn(CXPoint, int, void *) { return 0; }
    virtual int OnFocusOff(CXPoint, int, void *) { return 0; }
    virtual int OnKeyTyped(int, void *) { return 0; }

    // The region: a rectangle with a size, or else a pixel object; pixelTest: only where it isn't clear. An
    // object that ends leaves no region.
    void Set(CGraphicsObject * graphics, bool pixelTest);
    void SetActiveRect(CXRect rect, _event events, int priority);
    bool TestHit(CXPoint point);

    int GetID() const { return id_; }
    void SetID(int id) { id_ = id; }
    bool IsEnabled() const { return enabled_; }
    void Enable(bool on);
    void EnableCursor(bool on) { cursorEnabled_ = on; } // it changes the cursor
    bool isHovered() const { return hovered_; }
    bool isUnderPointer() { return hovered_ && TestHit(pointer); } // by the last event
    void setOwner(void * owner) { owner_ = owner; }
    void setUnit(CUnit6 * unit) { unit_ = unit; }
    CUnit6 * getUnit() const { return unit_; }
    void setMCButton(CMC_Button * button) { button_ = button; }
    CMC_Button * getMCButton() const { return button_; }

    void onInvalidate(CGraphicsObject *, CXRect *) override {}
    void onDestroy(CGraphicsObject * object) override;
    void onReplaced(CGraphicsObject * object, CGraphicsObject * fresh) override;

    // ---- all of them
    static void initialize(CWindow * window); // once
    static void done();                       // the window goes: the list too, the bounds are a new game's
    static void add(CHotSpot * hotSpot);
    static void remove(CHotSpot * hotSpot);
    // Only hot spots between these, both included, are hit.
    static void setMinPriority(int priority) { minPriority = priority; }
    static void setMaxPriority(int priority) { maxPriority = priority; }
    static int getMinPriority() { return minPriority; }
    static int getMaxPriority() { return maxPriority; }
    static int OnMouseEvent(_event event, CXPoint point, int flags);
    // The hit one of the highest priority, of equals the first; null for none.
    static CHotSpot * findAt(CXVector * list, CXPoint point);

private:
    class Walk;

    static bool within(int priority) { return priority >= minPriority && priority <= maxPriority; }
    static int OnMouseMove(CXVector * list, CXPoint point, int flags);
    static int OnLButtonDown(CXVector * list, CXPoint point, int flags);
    static int OnLButtonUp(CXVector * list, CXPoint point, int flags);
    static int OnRButtonDown(CXVector * list, CXPoint point, int flags);

    static CXVector * pHSList; // owned; null before the first
    static CWindow * m_pWindow;
    static int minPriority, maxPriority;
    static CXPoint pointer; // of the last event

    int id_ = 0;
    void * owner_ = nullptr;
    CXRect activeRect_;
    CGraphicsObject * graphics_ = nullptr; // not owned
    CUnit6 * unit_ = nullptr;
    bool enabled_ = true;
    bool cursorEnabled_ = true;
    bool hovered_ = false;
    CHotSpot * parent_ = nullptr; // not owned; forgotten when it goes
    CMC_Button * button_ = nullptr;
    bool pixelTest_ = false;
    int priority_ = 0;
};
