// How an animation runs. Whoever is told of a step may have changed anything by the time it returns.

#include "app/CWindow.h"
#include "graphics/CAnimo_Watch.h"
#include "graphics/CFrame.h"

#include <algorithm>
#include <string_view>

// ---- what is shown

void CAnimo::Set(int frame, bool tell) {
    if (!GetFrame(frame)) return;
    CXRect before = GetBoundingBox();
    if (visible_) Invalidate();
    current_ = frame;
    if (tell) {
        Watch watch(*this);
        notify(kTick);
        if (watch.gone()) return;
    }
    updateWithCurrentFrame();
    if (before != GetBoundingBox()) Invalidate();
}

void CAnimo::SetFrame(int frame) { Set(frame, true); }

void CAnimo::SetEventFrame(int event, int entry) {
    if (!has(event, entry)) return;
    if (visible_) tellCanvas(GetBoundingBox());
    int frame = GetEventFrame(event, entry);
    if (animoStatus_ == kAnimoPlaying) PlaySoundFX(event, entry);
    const _annEventInfo3 & e = events_[at(event)];
    shownOpacity_ = e.infos[at(entry)].opacity;
    if (shownOpacity_ == 255) shownOpacity_ = e.opacity;
    currentEvent_ = event;
    index_ = entry;
    Set(frame, true);
}

void CAnimo::Seek(int entry) { SetEventFrame(currentEvent_, entry); }

// ---- sounds

FrameSound * CAnimo::frameSound() {
    const _anmFrameInfo3 * info = getFrameInfo(currentEvent_, index_);
    return info ? info->sound.get() : nullptr;
}

bool CAnimo::soundPlays() {
    FrameSound * sound = frameSound();
    return (stream_ && stream_->isPlaying()) || (sound && sound->isPlaying());
}

void CAnimo::PlaySoundFX(int event, int entry) {
    const _anmFrameInfo3 & info = events_[at(event)].infos[at(entry)];
    if (animoFlags_ & kAnimoStreamsSounds) {
        if (!info.soundName.IsString() || !FrameSound::stream) return;
        if (stream_) stream_->stop();
        stream_.reset(FrameSound::stream(window_, info.soundName));
        if (stream_) stream_->play();
    } else if (info.sound) {
        info.sound->play();
    }
}

void CAnimo::silence(bool frameSoundToo) {
    if (stream_) stream_->stop();
    stream_.reset();
    FrameSound * sound = frameSoundToo ? frameSound() : nullptr;
    if (sound) sound->stop();
}

void CAnimo::makeSounds() {
    if ((animoFlags_ & kAnimoStreamsSounds) || !FrameSound::load) return;
    int made = 0;
    for (_annEventInfo3 & event : events_)
        for (_anmFrameInfo3 & info : event.infos)
            if (info.soundName.IsString() && made < kMostSounds) {
                info.sound.reset(FrameSound::load(window_, info.soundName));
                made++;
            }
}

void CAnimo::eachSound(const std::function<void(FrameSound &)> & act) {
    if (stream_) act(*stream_);
    for (_annEventInfo3 & event : events_)
        for (_anmFrameInfo3 & info : event.infos)
            if (info.sound) act(*info.sound);
}

void CAnimo::setVolume(int volume) {
    CPlayable::setVolume(volume);
    eachSound([&](FrameSound & sound) { sound.setVolume(volume); });
}

void CAnimo::setPanning(int panning) {
    CPlayable::setPanning(panning);
    eachSound([&](FrameSound & sound) { sound.setPanning(panning); });
}

void CAnimo::setFrequency(int frequency) {
    CPlayable::setFrequency(frequency);
    eachSound([&](FrameSound & sound) { sound.setFrequency(frequency); });
}

// ---- start and end

void CAnimo::Play(_animoevent wanted, int entry, int) {
    int event = wanted;
    Invalidate();
    if (!has(event)) return;
    _annEventInfo3 * now = getEventInfo(currentEvent_);
    if (animoStatus_ == kAnimoPlaying && ((animoFlags_ | (now ? now->flags : 0)) & kAnimoExclusive)) return;
    if (now) now->loopCounter = 0;
    currentEvent_ = lastPlayed_ = event;
    index_ = std::min(index_, events_[at(event)].size() - 1);
    if (turned_) direction_ = kForward; // it was the last event that turned round
    turned_ = false;
    if (!visible_) Visible(true);
    if (fps_ == 0) fps_ = kDefaultFps;
    animoStatus_ = kAnimoPlaying;
    CPlayable::status_ = kPlaying;
    Watch watch(*this);
    SetEventFrame(event, entry);
    if (!watch.gone()) notify(kStarted);
}

void CAnimo::Play(const CXString & name, int entry, int flag) {
    int event = GetEventNo(name);
    if (event >= 0) Play(static_cast<_animoevent>(event), entry, flag);
}

void CAnimo::playReverse(const CXString & name, int flag) {
    constexpr std::string_view kEnding = "_reverse";
    CXString base = name;
    if (name.getLength() > 9 && name.view().ends_with(kEnding))
        base = CXString(name.view().substr(0, name.view().size() - kEnding.size()));
    int event = GetEventNo(base);
    if (event < 0) return;
    CXString reverse = base + "_reverse";
    int reversed = GetEventNo(reverse);
    if (reversed < 0) {
        _annEventInfo3 copy = events_[at(event)];
        copy.name = reverse;
        copy.loopCounter = 0;
        std::reverse(copy.frames.begin(), copy.frames.end());
        std::reverse(copy.infos.begin(), copy.infos.end());
        events_.push_back(std::move(copy));
        reversed = GetNOE() - 1;
    }
    Play(static_cast<_animoevent>(reversed), 0, flag);
}

void CAnimo::play() { Play(static_cast<_animoevent>(currentEvent_), 0, kWholeEvent); }

void CAnimo::StopNoNotify() {
    if (animoStatus_ == kAnimoStopped) return;
    const _annEventInfo3 * event = getEventInfo(currentEvent_);
    int flags = event ? event->flags : 0;
    animoStatus_ = kAnimoStopped;
    CPlayable::status_ = kStopped;
    silence(((flags | animoFlags_) & kAnimoSoundOutlives) == 0);
    if (flags & kAnimoHideWhenStopped) Visible(false);
}

void CAnimo::Stop() {
    if (animoStatus_ == kAnimoPlaying) StopNoNotify();
}

void CAnimo::stop(bool report) {
    Stop();
    if (report) notify(kFinished);
}

void CAnimo::Pause() {
    if (animoStatus_ == kAnimoPlaying) animoStatus_ = kAnimoPaused;
}

void CAnimo::Resume() {
    if (animoStatus_ != kAnimoPaused) return;
    animoStatus_ = kAnimoPlaying;
    notify(kResumed);
}

bool CAnimo::Continue() {
    const _annEventInfo3 * event = getEventInfo(currentEvent_);
    fps_ = event && event->fps > 0 ? event->fps : kDefaultFps;
    animoStatus_ = kAnimoPlaying;
    CPlayable::status_ = kPlaying;
    return Next();
}

// ---- steps

void CAnimo::next() {
    if (direction_ == kForward)
        Next();
    else
        Prev();
}

bool CAnimo::showEntry(int entry) {
    if (!has(currentEvent_)) return false;
    int frame = current_;
    Watch watch(*this);
    SetEventFrame(currentEvent_, std::clamp(entry, 0, events_[at(currentEvent_)].size() - 1));
    return !watch.gone() && current_ != frame;
}

bool CAnimo::finish(int entry) {
    int event = currentEvent_, index = index_;
    Watch watch(*this);
    stop(true);
    if (watch.gone() || animoStatus_ != kAnimoStopped || event != currentEvent_ || index != index_)
        return false;
    return showEntry(entry);
}

bool CAnimo::endOfEvent(int entry) {
    if (!(animoFlags_ & kAnimoRunsOn)) return finish(entry);
    if (!has(currentEvent_ + 1)) {
        stop(true);
        return false;
    }
    lastPlayed_ = ++currentEvent_;
    return showEntry(0);
}

bool CAnimo::Next() {
    if (visible_) Invalidate();
    if (!has(currentEvent_)) {
        Stop();
        return false;
    }
    _annEventInfo3 & e = events_[at(currentEvent_)];
    int size = e.size(), i = index_ + 1;
    if (e.loopEnd == 0) {
        if (i >= size) return endOfEvent(size - 1);
    } else if (i > std::min<int>(e.loopEnd, size - 1)) {
        if (e.flags & kAnimoPingPong) {
            i -= 2;
            direction_ = kBackward;
            turned_ = true;
        } else if ((e.flags & kAnimoLoopsWithSound) && !soundPlays()) {
            if (i + 1 >= size) return endOfEvent(size - 1);
            i++;
        } else if (e.loopCount == 0 || ++e.loopCounter < e.loopCount) {
            i = e.loopStart;
        } else {
            e.loopCounter = 0;
            return finish(i);
        }
    }
    return showEntry(i);
}

bool CAnimo::Prev() {
    if (visible_) Invalidate();
    if (!has(currentEvent_)) {
        Stop();
        return false;
    }
    _annEventInfo3 & e = events_[at(currentEvent_)];
    int i = index_ - 1;
    if (e.loopEnd == 0) {
        if (i < 0) return finish(0);
    } else if (i < e.loopStart) {
        if (e.flags & kAnimoPingPong) {
            i += 2;
            direction_ = kForward;
            turned_ = false;
        } else if ((e.flags & kAnimoLoopsWithSound) && !soundPlays()) {
            if (i - 1 < 0) return finish(0);
            i--;
        } else if (e.loopCount == 0 || ++e.loopCounter < e.loopCount) {
            i = e.loopEnd;
        } else {
            e.loopCounter = 0;
            return finish(i);
        }
    }
    return showEntry(i);
}
