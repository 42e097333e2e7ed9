#include "sound/CSoundManager.h"

#include "sound/CSound4.h"

#include <algorithm>
#include <utility>

CSoundManager::~CSoundManager() { Flush(); }

CSoundManager::Entry * CSoundManager::find(const CSound4 * sound) {
    auto found = std::find_if(entries_.begin(), entries_.end(),
                              [&](const auto & entry) { return entry->sound == sound; });
    return found == entries_.end() ? nullptr : found->get();
}

void CSoundManager::add(CSound4 * sound, bool owned) {
    if (find(sound)) return;
    entries_.push_back(std::make_unique<Entry>(Entry{sound, false, owned}));
}

void CSoundManager::play(CSound4 * sound) {
    if (Entry * entry = find(sound)) entry->playing = true;
}

void CSoundManager::remove(CSound4 * sound) {
    if (Entry * entry = find(sound)) entry->sound = nullptr;
}

template <class Act>
void CSoundManager::each(Act && act) {
    walks_++;
    for (std::size_t i = 0; i < entries_.size(); i++) // not by iterators: what is told may add
        if (entries_[i]->sound) act(*entries_[i]);
    if (--walks_ == 0) std::erase_if(entries_, [](const auto & entry) { return !entry->sound; });
}

void CSoundManager::domodal() {
    each([](Entry & entry) {
        CSound4 * sound = entry.sound;
        if (!entry.playing || sound->isPaused() || sound->IsPlaying()) return;
        entry.playing = false;
        sound->OnWAVFinished();
    });
}

void CSoundManager::Flush() {
    for (auto & entry : std::exchange(entries_, {}))
        if (entry->sound && entry->owned) delete entry->sound;
}

void CSoundManager::pause() {
    each([](Entry & entry) { entry.sound->pause(); });
}

void CSoundManager::resume() {
    each([](Entry & entry) { entry.sound->resume(); });
}
