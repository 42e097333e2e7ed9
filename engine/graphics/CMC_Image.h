#pragma once

// IMAGE: a still picture that a scene shows, perhaps as a button that tells of the mouse. It owns the CImage,
// which LOAD may replace. Owned by its scope. Main thread.

#include "app/Listeners.h"
#include "graphics/CollisionSignals.h"
#include "script/CMC_Object.h"

#include <memory>

class CImage;
class CRefreshScreen;
class CWindow;

class CMC_Image : public CMC_Object, public CMouseListener, public CollisionSignals {
public:
    static const char * const kSignals[9];
    static const char * const kKeys[9];
    enum Signal { kOnCollision = 3, kOnCollisionFinished, kOnFocusOn, kOnFocusOff, kOnClick, kOnRelease };

    CMC_Image(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Image() override;

    bool done(bool all) override;
    bool verifyBehaviour(const CXString & signal) override {
        monitorFor(signal);
        return true;
    }
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;
    CMC_Object * clone() override; // at the picture's place on the screen

    // Another picture, at the old one's place; nothing for the file that it has. now: not at the first show.
    void load(const CXString & file, bool now);
    void setAsButton(bool enabled, bool keep);
    CImage * getImage() const { return image_.get(); } // never null
    CXPoint GetStartingPosition() const { return resetPosition_; }
    void SetStartingPosition(CXPoint p) { resetPosition_ = p; }
    // Takes the other's planes, size and position.
    void link(CMC_Image & other);

    bool onMouseMove(CXPoint point) override;
    bool onClick(CXPoint point) override;
    bool onRelease(CXPoint point) override;

private:
    CMC_Image(CMC_ObjectsContainer * scope, std::unique_ptr<CImage> image, const CMC_Image & source);
    CRefreshScreen * canvas() const;
    CGraphicsObject * watched() override;
    void raise(int signal);
    void leave();

    CWindow * window_; // not owned; null in scopes without one
    std::unique_ptr<CImage> image_;
    int priority_ = 0;
    bool isButton_ = false, keeps_ = false;
    bool mouseInside_ = false, pressed_ = false;
    CXPoint resetPosition_;
};
