#pragma once

// Tells when two watched objects begin or cease to overlap. Only what has moved since the last tick is
// tested, against all that is watched. The window owns the one inspector; an object that dies is forgotten at
// once, from its destructor. Main thread.

#include "core/CXObject.h"
#include "core/CXRect.h"

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

class CGraphicsObject;

// Hears of every pair, and picks its own. Owned elsewhere: removeNotifier before it goes.
class CCollisionObserver {
public:
    virtual ~CCollisionObserver() = default;
    virtual void onCollision(CGraphicsObject * a, CGraphicsObject * b) = 0; // a is the one that moved
    virtual void onCollisionFinished(CGraphicsObject * a, CGraphicsObject * b) = 0;
};

struct CMonitoredObject {
    CGraphicsObject * object = nullptr; // not owned; null when it is gone
    bool useAlpha = false;
    bool isMoved = false;                    // it is in the moved list
    std::vector<CGraphicsObject *> partners; // overlapping it now; only told apart, never used
    bool active = true;                      // else deleted at the next tick's end
};

class CCollisionInspector : public CXObject {
public:
    static constexpr std::size_t kMostFollowing = 1000; // moves of observers that one tick tests

    // alpha: a pair counts, when this object moves, only where the other's alpha isn't 0. An object that is
    // known keeps the alpha it had.
    void addMonitoredObject(CGraphicsObject * object, bool alpha);
    void removeMonitoredObject(CGraphicsObject * object); // no finished signal is raised
    void forget(CGraphicsObject * object);                // it dies
    void addNotifier(CCollisionObserver * observer);
    void removeNotifier(CCollisionObserver * observer);
    void onPositionChanged(CGraphicsObject * object);
    // Observers may move, add, remove and delete objects: what is moved meanwhile is taken in this pass too.
    void tick();

private:
    enum class Event { begins, ends };
    void test(CMonitoredObject & moved);
    void notify(Event event, CGraphicsObject * a, CGraphicsObject * b);
    void deleteInactive();
    static bool checkAlphaCollision(CGraphicsObject * a, CGraphicsObject * b, const CXRect & common);

    std::vector<std::unique_ptr<CMonitoredObject>> monitored_; // in order of adding
    std::unordered_map<const CGraphicsObject *, CMonitoredObject *> known_;
    std::vector<CCollisionObserver *> observers_;
    std::vector<CMonitoredObject *> moved_; // in order of moving
    bool anyInactive_ = false;
};
