#pragma once

// ANIMO: an animation that a scene shows and plays, perhaps as a button that tells of the mouse. It owns the
// CAnimo6, which LOAD may replace. Owned by its scope. Main thread.

#include "app/Listeners.h"
#include "graphics/CollisionSignals.h"
#include "script/CMC_Object.h"
#include "sequence/CPlayableObserver.h"

#include <memory>

class CAnimo6;
class CRefreshScreen;
class CWindow;

class CMC_Animo : public CMC_Object,
                  public CMouseListener,
                  public CPlayableObserver,
                  public CollisionSignals {
public:
    static const char * const kSignals[15];
    static const char * const kKeys[11];
    enum Signal {
        kOnStarted = 3,
        kOnFinished,
        kOnPaused,
        kOnResumed,
        kOnFrameChanged,
        kOnFrameChangedFrame,
        kOnCollision,
        kOnCollisionFinished,
        kOnFocusOn,
        kOnFocusOff,
        kOnClick,
        kOnRelease
    };

    CMC_Animo(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Animo() override;

    bool done(bool all) override;
    bool verifyBehaviour(const CXString & signal) override {
        monitorFor(signal);
        return true;
    }
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;
    CMC_Object * clone() override; // sharing the pixels, at the animation's place on the screen
    bool isPlaying() override;

    // Another animation, at the old one's place; nothing for the file that it has. now: not at the first
    // show.
    void load(const CXString & file, bool now);
    void setAsButton(bool enabled, bool keep);
    void setOnFirstFrame(bool on) { onFirstFrame_ = on; } // whether it goes back there when it finishes
    void pause();
    CAnimo6 * getAnimo() const { return animo_.get(); } // never null
    // The animation for a change of its pixels: clones that share them keep theirs.
    CAnimo6 * getOwnAnimo();

    bool onMouseMove(CXPoint point) override;
    bool onClick(CXPoint point) override;
    bool onRelease(CXPoint point) override;

    bool onPlayableStarted(CPlayable * playable) override;
    bool onPlayableTick(CPlayable * playable) override;
    bool onPlayableFinished(CPlayable * playable) override;
    bool onPlayableResumed(CPlayable * playable) override;

    // An event's name in signals: upper case, and without the ending of its reversed form.
    static CXString getSignalEvent(const CXString & event);

private:
    CMC_Animo(const CMC_Animo & source);
    CGraphicsObject * watched() override;
    CRefreshScreen * canvas() const;
    void replace(std::shared_ptr<CAnimo6> fresh);
    void raise(int signal);
    void raiseWithEvent(int signal);
    void playIfThere(const char * event);
    bool isHit(CXPoint point) const;
    void leave();

    CWindow * window_; // not owned; null in scopes without one
    std::shared_ptr<CAnimo6> animo_;
    std::shared_ptr<void> lender_; // the animations whose pixels this one shares, kept as long
    int priority_ = 0;
    bool onFirstFrame_ = false;
    bool isButton_ = false, keeps_ = false;
    bool mouseInside_ = false, pressed_ = false;
};
