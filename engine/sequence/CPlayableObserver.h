#pragma once

// Is told how a playable runs. It takes itself off the playable's notifiers before it goes. Main thread.

class CPlayable;

class CPlayableObserver {
public:
    virtual ~CPlayableObserver() = default;
    virtual bool onPlayableStarted(CPlayable *) { return true; }
    virtual bool onPlayableTick(CPlayable *) { return true; }
    virtual bool onPlayableFinished(CPlayable *) { return true; }
    virtual bool onPlayableResumed(CPlayable *) { return true; }
    virtual void onPlayableGone(CPlayable *) {} // it is being destroyed: nothing but its address counts
};
