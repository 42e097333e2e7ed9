#pragma once

// Plays playables now and then: each has a rate, plays a series of random length, and waits a random time.
// One second is its step. Main thread.

#include "core/CTimerNotificator.h"
#include "core/CXArray.h"
#include "core/CXVector.h"
#include "sequence/CPlayable.h"

class CUnit6;

// Is asked before each play and after it; the last one's answer counts.
class CRandomPlayableNotifier {
public:
    virtual ~CRandomPlayableNotifier() = default;
    virtual bool onRandomPlayableStarted(CPlayable *, int) {
        return true;
    } // series done: whether it may play
    virtual bool onRandomPlayableFinished(CPlayable *, int) { return false; } // whether the series goes on
};

class CRandomPlayable;

class CRandomPlayableEntry : public CXObject, public CPlayableObserver {
public:
    CRandomPlayableEntry(CRandomPlayable * owner, CPlayable * playable, double rate, int series,
                         const CXString & event);
    CRandomPlayableEntry(const CRandomPlayableEntry &) = delete;
    CRandomPlayableEntry & operator=(const CRandomPlayableEntry &) = delete;
    ~CRandomPlayableEntry() override;

    void leave();      // nothing happens from now on
    void initialize(); // a new series, after a new wait
    void tick();       // a second has passed
    bool onPlayableFinished(CPlayable * who) override;
    void onPlayableGone(CPlayable *) override; // this entry goes too

    CPlayable * getPlayable() const { return playable_; }
    int getSecondsLeft() const { return secondsLeft_; }

private:
    CRandomPlayable * owner_; // not owned
    CPlayable * playable_;    // not owned; null once it has left
    double rate_;             // plays a minute
    int seriesMaximum_;
    int secondsLeft_ = 0, seriesTarget_ = 0, seriesDone_ = 0;
    CXString event_; // empty: a random one
};

class CRandomPlayable : public CXObject, public CTimerNotificator {
public:
    static constexpr unsigned kStep = 1000; // milliseconds

    CRandomPlayable(CWindow * window, CUnit6 * unit);
    CRandomPlayable(const CRandomPlayable &) = delete;
    CRandomPlayable & operator=(const CRandomPlayable &) = delete;
    ~CRandomPlayable() override;

    // The playable stays the caller's.
    void add(CPlayable * playable, double rate, int series, const CXString & event);
    void remove(CPlayable * playable);
    void addNotifier(CRandomPlayableNotifier * notifier);
    void removeNotifier(CRandomPlayableNotifier * notifier) { notifiers_.remove(notifier); }
    CUnit6 * getUnit() const { return unit_; }

    void onTimer(int id) override;

    // The last notifier's answer; false without any.
    bool tellStarted(CPlayable * playable, int seriesDone);
    bool tellFinished(CPlayable * playable, int seriesDone);

private:
    void sweep();
    template <class Tell>
    bool tell(const Tell & each);

    CWindow * window_;             // not owned
    CUnit6 * unit_;                // not owned
    CXVector entries_{11, 0.75F};  // owned
    CXVector left_{11, 0.75F};     // owned: entries that were removed, perhaps while they were at work
    CXArray notifiers_{11, 0.75F}; // CRandomPlayableNotifier, not owned
    int timerId_ = 0;
};
