#pragma once

// The collisions of a script object that shows a picture: what it shows is watched by the window's inspector,
// through its scene, and the object raises ONCOLLISION^NAME or ONCOLLISION, and the same when a collision
// ends. A base of the script object; both have one life.

#include "core/CXString.h"
#include "graphics/CCollisionInspector.h"

class CMC_Object;

class CollisionSignals : public CCollisionObserver {
public:
    // The method and the keys; a second call changes nothing. alpha: as the inspector takes it.
    void monitorCollisions(bool alpha);
    void removeMonitorCollisions();
    // Something is bound to the signal: what raises it is started.
    void monitorFor(const CXString & signal);

    void onCollision(CGraphicsObject * a, CGraphicsObject * b) override;
    void onCollisionFinished(CGraphicsObject * a, CGraphicsObject * b) override;

protected:
    // index: that of ONCOLLISION in the object's list of signals, ONCOLLISIONFINISHED being the next.
    CollisionSignals(CMC_Object * self, int index) : self_(self), index_(index) {}
    CollisionSignals(const CollisionSignals &) = delete;
    CollisionSignals & operator=(const CollisionSignals &) = delete;

    virtual CGraphicsObject * watched() = 0; // what the object shows now
    bool isWatchedByAlpha() const { return alpha_; }

private:
    CXString nameOf(CGraphicsObject * object) const;
    void raise(int index, const char * signal, CGraphicsObject * a, CGraphicsObject * b);

    CMC_Object * self_;
    int index_;
    bool alpha_ = false;
};
