#pragma once

// The base of everything that runs over time and tells when it starts and ends: animations, sounds,
// sequences; pictures too, so that they can be shown and hidden in the same way. Main thread.

#include "core/CXArray.h"
#include "files/CFileResolver.h"
#include "sequence/CPlayableObserver.h"

#include <string>
#include <utility>
#include <vector>

class CWindow;

class CPlayable : public CFileResolver {
public:
    enum Code { kStarted = 1, kTick = 2, kFinished = 3, kResumed = 4 }; // for notify
    enum Status { kStopped = 0, kPlaying = 1, kPaused = 2 };
    enum Kind { kOther, kAnimation, kSound, kSequence, kSpeaking };
    static constexpr int kWholeEvent = 15; // the flag for playing an event

    explicit CPlayable(CWindow * window) : playableWindow_(window) {}
    CPlayable(const CPlayable &) = delete;
    CPlayable & operator=(const CPlayable & other); // all but the notifiers and the parent
    ~CPlayable() override;                          // tells its notifiers and its parent

    virtual void setParent(CPlayable * parent) { parent_ = parent; }
    virtual bool isParent() { return parentCount_ > 0; } // whether it belongs to one, and so reports to it
    virtual CXArray * getNotifiers() { return &notifiers_; }
    virtual void setNotifier(CPlayableObserver * observer); // the only one from now on; null: none
    virtual CPlayable * getPlaying() { return isPlaying() ? this : nullptr; } // a sequence answers the child
    virtual const CXString & getParam() { return parameter_; }
    virtual CXString getParameter(const CXString & parameter); // the event that it stands for; else empty
    virtual void play(const CXString & parameter); // stops without a report, takes the parameter, plays
    virtual void play() {}
    virtual void stop(bool report); // report: finishing is told
    virtual void pause() {}
    virtual void resume() {}
    virtual void seek(int) {}
    virtual int getStatus() { return status_; }
    virtual bool isPlaying() { return (status_ & kPlaying) != 0; }
    virtual bool isPaused() { return (status_ & kPaused) != 0; }
    virtual void previous() {}
    virtual void next() {}
    virtual int getFPS() { return 0; }
    virtual void move(int dx, int dy);
    virtual void setPosition(int x, int y);
    virtual bool isVisible() { return playableVisible_; }
    virtual void setVisibility(bool visible) { playableVisible_ = visible; }
    virtual void show() { setVisibility(true); }
    virtual void hide() { setVisibility(false); }
    // Tells all notifiers, the generic one last; what the last one returned, true without any. They may join
    // and leave meanwhile: told are those of the call's beginning that are still there.
    virtual bool notify(int code);
    virtual void setVolume(int volume) { volume_ = volume; }
    virtual void setPanning(int panning) { panning_ = panning; }
    virtual void setFrequency(int frequency) { frequency_ = frequency; }

    // What a random playable and a sequence ask of it.
    virtual Kind getKind() { return kOther; }
    virtual int getEventsNumber() { return 0; }
    virtual void playEvent(int, int) { play(); } // number, flag
    virtual void playEvent(const CXString &) { play(); }
    virtual CXString getPlayedEvent() { return event_; } // the last one
    virtual void alwaysOnTop() {}
    virtual void forgetChild(CPlayable *) {} // that is being destroyed

    void setName(const CXString & name) { playableName_ = name; }
    const CXString & getName() const { return playableName_; }
    void setParameter(const CXString & parameter) { parameter_ = parameter; }
    void setParameter(const CXString & parameter, const CXString & event) { addEvent(parameter, event); }
    void addEvent(const CXString & parameter, const CXString & event); // a later one replaces the one before
    const CXString & getEvent() const { return event_; }               // of the last play
    void setEvent(const CXString & event) { event_ = event; }
    void setMode(int mode) { mode_ = mode; }
    int getMode() const { return mode_; }
    void setWaitMode(bool wait) { waitMode_ = wait; }
    bool getWaitMode() const { return waitMode_; }  // a sequence goes on when it ends, else at once
    void addNotifier(CPlayableObserver * observer); // once
    void removeNotifier(CPlayableObserver * observer);
    void clearNotifiers() { notifiers_.removeAll(); }
    void setGenericNotifier(CPlayableObserver * observer) { generic_ = observer; }
    CPlayable * getParent() const { return parent_; }
    void addParent() { parentCount_++; }
    void subParent() { parentCount_ -= parentCount_ > 0; }
    int getVolume() const { return volume_; }
    int getPanning() const { return panning_; }
    int getFrequency() const { return frequency_; }

protected:
    // Some have longer names than elsewhere: pictures and animations inherit pixel objects too.
    int status_ = kStopped;
    int position_ = 0;
    CXString playableName_;
    CWindow * playableWindow_; // not owned
    int mode_ = 0;
    CXString parameter_;
    std::vector<std::pair<CXString, CXString>> events_; // by parameter
    bool playableVisible_ = true;
    int visibleFlag_ = 0;
    bool waitMode_ = true;
    CXString event_;
    int playableX_ = 0, playableY_ = 0;
    int volume_ = 0, panning_ = 0, frequency_ = 0; // frequency 0: as it is
    CPlayable * parent_ = nullptr;                 // not owned
    int parentCount_ = 0;
    CPlayableObserver * generic_ = nullptr; // not owned

private:
    CXArray notifiers_{11, 0.75F}; // CPlayableObserver, not owned
};
