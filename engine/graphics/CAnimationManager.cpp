#include "graphics/CAnimationManager.h"

#include "graphics/CAnimo.h"
#include "platform/World.h"
#include "script/CMC_Groupped.h"
#include "script/TypeTable.h"

#include <algorithm>

void CAnimationManager::add(CPlayable * playable, CRefreshScreen * canvas) {
    entries_.push_back({playable, canvas, false, platform::world().clock->tickCount()});
}

void CAnimationManager::remove(CPlayable * playable) {
    std::erase_if(entries_, [playable](const Entry & entry) { return entry.playable == playable; });
}

CAnimationManager::Entry * CAnimationManager::find(CPlayable * playable) {
    auto hit = std::find_if(entries_.begin(), entries_.end(),
                            [playable](const Entry & entry) { return entry.playable == playable; });
    return hit == entries_.end() ? nullptr : &*hit;
}

// What a step does may change the list.
std::vector<CPlayable *> CAnimationManager::playables() const {
    std::vector<CPlayable *> list;
    for (const Entry & entry : entries_) list.push_back(entry.playable);
    return list;
}

void CAnimationManager::pause() {
    for (CPlayable * each : playables())
        if (find(each) && each->isPlaying()) each->pause();
}

void CAnimationManager::resume(CMC_Groupped * group) {
    auto inGroup = [group](CPlayable * playable) {
        if (!group) return true;
        if (playable->getKind() != CPlayable::kAnimation) return false;
        CGraphicsObject * picture = static_cast<CAnimo *>(playable);
        for (int i = 0; i < group->getSize(); i++) {
            CMC_Object * member = group->get(i);
            const TypeRow * row = member ? typetable::find(member->getType()) : nullptr;
            if (row && row->graphics && row->graphics(member, CXString()) == picture) return true;
        }
        return false;
    };
    for (CPlayable * each : playables())
        if (find(each) && each->isPaused() && inGroup(each)) each->resume();
}

void CAnimationManager::domodal() {
    for (Entry & entry : entries_) {
        if (!entry.playable->isPlaying()) continue;
        int fps = entry.playable->getFPS();
        std::uint32_t period = fps > 0 ? static_cast<std::uint32_t>(1000 / fps) : 0;
        std::uint32_t now = platform::world().clock->tickCount();
        if (now - entry.last < period) continue;
        entry.last = now;
        entry.due = true;
    }
    for (CPlayable * each : playables()) {
        Entry * entry = find(each);
        if (!entry || !entry->due) continue;
        entry->due = false;
        each->next();
    }
}
