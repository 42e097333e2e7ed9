#pragma once

// SOUND: a sound effect of a scene. Objects of one scene that name the same file share one CSound4, through
// the unit's cache; elsewhere each has its own. Owned by its scope. Main thread.

#include "script/CMC_Object.h"
#include "sequence/CPlayableObserver.h"

class CSound4;
class CWindow;

class CMC_Sound : public CMC_Object, public CPlayableObserver {
public:
    static const char * const kSignals[6];
    static const char * const kKeys[3];
    enum Signal { kOnStarted = 3, kOnFinished, kOnResumed };

    CMC_Sound(CMC_ObjectsContainer * scope, CMElement * element);
    CMC_Sound(CMC_ObjectsContainer * scope, const CXString & name); // without a file
    ~CMC_Sound() override;

    bool done(bool all) override;
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;
    CMC_Object * clone() override; // of the same file
    bool isPlaying() override;

    CSound4 * getSound() const { return sound_; } // null without a file
    bool load(const CXString & name);             // of the folder of sounds; false when it can't be read

    bool onPlayableStarted(CPlayable * playable) override;
    bool onPlayableFinished(CPlayable * playable) override;
    bool onPlayableResumed(CPlayable * playable) override;

private:
    void initSound(const CXString & name);
    void leave();
    bool raise(int signal);

    CWindow * window_; // not owned; null in scopes without one
    CSound4 * sound_ = nullptr;
    bool isShared_ = false; // the unit's cache owns it
    bool preload_ = false, flushAfterPlayed_ = false;
    CXString fileName_;
};
