#include "sequence/CPlayable.h"

CPlayable & CPlayable::operator=(const CPlayable & other) {
    if (this == &other) return *this;
    CFileResolver::operator=(other);
    status_ = other.status_;
    position_ = other.position_;
    playableName_ = other.playableName_;
    playableWindow_ = other.playableWindow_;
    mode_ = other.mode_;
    parameter_ = other.parameter_;
    events_ = other.events_;
    playableVisible_ = other.playableVisible_;
    visibleFlag_ = other.visibleFlag_;
    waitMode_ = other.waitMode_;
    event_ = other.event_;
    playableX_ = other.playableX_;
    playableY_ = other.playableY_;
    volume_ = other.volume_;
    panning_ = other.panning_;
    frequency_ = other.frequency_;
    return *this;
}

CPlayable::~CPlayable() {
    if (parent_) parent_->forgetChild(this);
    std::vector<void *> told(notifiers_.begin(), notifiers_.end());
    for (void * each : told)
        if (notifiers_.contains(each)) static_cast<CPlayableObserver *>(each)->onPlayableGone(this);
}

void CPlayable::setNotifier(CPlayableObserver * observer) {
    clearNotifiers();
    addNotifier(observer);
}

CXString CPlayable::getParameter(const CXString & parameter) {
    for (const auto & [name, event] : events_)
        if (name == parameter) return event;
    return {};
}

void CPlayable::addEvent(const CXString & parameter, const CXString & event) {
    for (auto & [name, present] : events_)
        if (name == parameter) {
            present = event;
            return;
        }
    events_.emplace_back(parameter, event);
}

void CPlayable::play(const CXString & parameter) {
    stop(false);
    parameter_ = parameter;
    status_ = kPlaying;
    event_ = getParameter(parameter);
    play();
}

void CPlayable::stop(bool report) {
    bool was = isPlaying();
    status_ = kStopped;
    if (report && was) notify(kFinished);
}

void CPlayable::move(int dx, int dy) { setPosition(playableX_ + dx, playableY_ + dy); }

void CPlayable::setPosition(int x, int y) {
    playableX_ = x;
    playableY_ = y;
}

bool CPlayable::notify(int code) {
    std::vector<CPlayableObserver *> told;
    for (void * each : notifiers_) told.push_back(static_cast<CPlayableObserver *>(each));
    if (generic_) told.push_back(generic_);
    bool answer = true;
    for (CPlayableObserver * observer : told) {
        // One that has left meanwhile may be gone.
        if (!observer || (observer != generic_ && !notifiers_.contains(observer))) continue;
        switch (code) {
        case kStarted: answer = observer->onPlayableStarted(this); break;
        case kTick: answer = observer->onPlayableTick(this); break;
        case kFinished: answer = observer->onPlayableFinished(this); break;
        case kResumed: answer = observer->onPlayableResumed(this); break;
        default: break;
        }
    }
    return answer;
}

void CPlayable::addNotifier(CPlayableObserver * observer) {
    if (observer && !notifiers_.contains(observer)) notifiers_.add(observer);
}

void CPlayable::removeNotifier(CPlayableObserver * observer) { notifiers_.remove(observer); }
