#include "sequence/CRandomPlayable.h"

#include "app/CWindow.h"
#include "core/CXRandom.h"
#include "platform/World.h"
#include "script/TimerIds.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kTries = 10;         // draws of an event until one plays
constexpr int kMostWait = 1 << 30; // seconds, for rates near none

} // namespace

CRandomPlayableEntry::CRandomPlayableEntry(CRandomPlayable * owner, CPlayable * playable, double rate,
                                           int series, const CXString & event)
    : owner_(owner), playable_(playable), rate_(rate), seriesMaximum_(std::max(series, 0)), event_(event) {
    playable_->addNotifier(this);
    initialize();
}

CRandomPlayableEntry::~CRandomPlayableEntry() { leave(); }

void CRandomPlayableEntry::leave() {
    if (playable_) playable_->removeNotifier(this);
    playable_ = nullptr;
}

void CRandomPlayableEntry::initialize() {
    double wait = rate_ > 0 ? std::min(std::trunc(60.0 / rate_), double{kMostWait}) : kMostWait;
    secondsLeft_ = CXRandom::random(static_cast<int>(wait)) + 1;
    seriesTarget_ = CXRandom::random(seriesMaximum_ - 1);
    seriesDone_ = 0;
}

// Whoever is told may remove this entry.
void CRandomPlayableEntry::tick() {
    if (!playable_ || playable_->isPlaying() || --secondsLeft_ != 0) return;
    seriesDone_++;
    bool may = owner_->tellStarted(playable_, seriesDone_);
    if (!may || !playable_) return; // below the number that fires: silent from now on
    int events = playable_->getEventsNumber();
    if (event_.IsString()) {
        playable_->playEvent(event_);
    } else if (events == 0) {
        playable_->play();
    } else {
        for (int i = 0; i < kTries && playable_ && !playable_->isPlaying(); i++)
            playable_->playEvent(platform::world().random->next() % events, CPlayable::kWholeEvent);
    }
}

bool CRandomPlayableEntry::onPlayableFinished(CPlayable * who) {
    if (who != playable_) return true;
    if (owner_->tellFinished(playable_, seriesDone_) || seriesDone_ < seriesTarget_)
        secondsLeft_ = 1;
    else
        initialize();
    return true;
}

void CRandomPlayableEntry::onPlayableGone(CPlayable *) { owner_->remove(playable_); }

CRandomPlayable::CRandomPlayable(CWindow * window, CUnit6 * unit)
    : window_(window), unit_(unit), timerId_(timerids::next()) {
    if (window_) window_->getTimer()->add(timerId_, kStep, this);
}

CRandomPlayable::~CRandomPlayable() {
    if (window_) window_->getTimer()->remove(timerId_);
    left_.add(&entries_);
    sweep();
}

void CRandomPlayable::add(CPlayable * playable, double rate, int series, const CXString & event) {
    if (playable) entries_.add(new CRandomPlayableEntry(this, playable, rate, series, event));
}

void CRandomPlayable::remove(CPlayable * playable) {
    for (int i = entries_.size; i--;) {
        auto * entry = static_cast<CRandomPlayableEntry *>(entries_[i]);
        if (entry->getPlayable() != playable) continue;
        entries_.removeAt(i);
        entry->leave();
        left_.add(entry);
    }
}

void CRandomPlayable::sweep() {
    for (CXObject * entry : left_) delete entry;
    left_.removeAll();
}

void CRandomPlayable::addNotifier(CRandomPlayableNotifier * notifier) {
    if (notifier && !notifiers_.contains(notifier)) notifiers_.add(notifier);
}

void CRandomPlayable::onTimer(int) {
    sweep();
    std::vector<CXObject *> present(entries_.begin(), entries_.end());
    for (CXObject * entry : present)
        if (entries_.contains(entry)) static_cast<CRandomPlayableEntry *>(entry)->tick();
}

template <class Tell>
bool CRandomPlayable::tell(const Tell & each) {
    std::vector<void *> present(notifiers_.begin(), notifiers_.end());
    bool answer = false;
    for (void * notifier : present)
        if (notifiers_.contains(notifier)) answer = each(*static_cast<CRandomPlayableNotifier *>(notifier));
    return answer;
}

bool CRandomPlayable::tellStarted(CPlayable * playable, int seriesDone) {
    return tell([=](CRandomPlayableNotifier & n) { return n.onRandomPlayableStarted(playable, seriesDone); });
}

bool CRandomPlayable::tellFinished(CPlayable * playable, int seriesDone) {
    return tell(
        [=](CRandomPlayableNotifier & n) { return n.onRandomPlayableFinished(playable, seriesDone); });
}
