// The tables: what events there are, and what stands in their lists.

#include "core/Diagnostics.h"
#include "graphics/CAnimo.h"
#include "graphics/CFrame.h"

#include <algorithm>

int CAnimo::AddEvent(const CXString & name) {
    events_.emplace_back().name = name;
    return GetNOE() - 1;
}

void CAnimo::AddFrame(int event, int frame) {
    if (event >= 0 && event < GetNOE() && GetFrame(frame) && frame <= UINT16_MAX &&
        events_[at(event)].size() < UINT16_MAX)
        events_[at(event)].add(static_cast<std::uint16_t>(frame));
}

void CAnimo::RemoveEvent(int event) {
    if (event < 0 || event >= GetNOE()) return;
    if (event == currentEvent_) Stop();
    events_.erase(events_.begin() + event);
    if (currentEvent_ > event || currentEvent_ == GetNOE()) currentEvent_ = std::max(currentEvent_ - 1, 0);
    if (lastPlayed_ > event || lastPlayed_ == GetNOE()) lastPlayed_ = std::max(lastPlayed_ - 1, 0);
}

void CAnimo::RemoveAllEvents() {
    Stop();
    events_.clear();
    currentEvent_ = lastPlayed_ = index_ = 0;
}

void CAnimo::RemoveFrame(int event, int entry) {
    if (!has(event, entry)) return;
    _annEventInfo3 & e = events_[at(event)];
    e.frames.erase(e.frames.begin() + entry);
    e.infos.erase(e.infos.begin() + entry);
}

void CAnimo::RemoveAllFrames(int event) {
    if (!has(event)) return;
    if (event == currentEvent_) Stop();
    events_[at(event)].frames.clear();
    events_[at(event)].infos.clear();
}

void CAnimo::ExchangeFrames(int event, int a, int b) {
    if (!has(event, a) || !has(event, b)) return;
    _annEventInfo3 & e = events_[at(event)];
    std::swap(e.frames[at(a)], e.frames[at(b)]);
    std::swap(e.infos[at(a)], e.infos[at(b)]);
}

int CAnimo::GetEventNo(const CXString & name) const {
    for (int i = 0; i < GetNOE(); i++)
        if (events_[at(i)].name.equalsIgnoreCase(name)) return i;
    return -1;
}

CXString CAnimo::GetEventName(int event) const {
    if (event >= 0 && event < GetNOE()) return events_[at(event)].name;
    dispMsgBox(nullptr, "Event indef out of bounds.");
    return {};
}

CXString CAnimo::getCurrentEventName() const {
    return currentEvent_ < GetNOE() ? events_[at(currentEvent_)].name : CXString();
}

CXString CAnimo::getFrameName(int event, int entry) const {
    return has(event, entry) ? events_[at(event)].infos[at(entry)].name : CXString();
}

void CAnimo::setFrameName(int event, int entry, const CXString & name) {
    if (has(event, entry)) events_[at(event)].infos[at(entry)].name = name;
}

CXString CAnimo::GetName(int event, int entry, const CXString & suffix) const {
    CXString name;
    if (entry >= 0) {
        name = getFrameName(event, entry);
        if (!name.IsString()) name.Format("Frame %d", entry);
    } else {
        if (event >= 0 && event < GetNOE()) name = events_[at(event)].name;
        if (!name.IsString()) name = "Default";
    }
    return name + suffix;
}

int CAnimo::getFirstEvent() const {
    for (int i = 0; i < GetNOE(); i++)
        if (has(i)) return i;
    return 0;
}

int CAnimo::GetNOFInEvent(int event) const { return has(event) ? events_[at(event)].size() : 0; }

int CAnimo::GetFrameNo(int event, const CXString & name) const {
    for (int i = 0; i < GetNOFInEvent(event); i++)
        if (events_[at(event)].infos[at(i)].name.equalsIgnoreCase(name)) return i;
    return -1;
}

int CAnimo::GetEventFrame(int event, int entry) const {
    return has(event, entry) ? events_[at(event)].frames[at(entry)] : -1;
}

int CAnimo::GetLoop(int event, CXPoint * loop) const {
    if (event < 0 || event >= GetNOE()) return 0;
    const _annEventInfo3 & e = events_[at(event)];
    if (loop) *loop = {e.loopStart, e.loopEnd};
    return e.loopCount;
}

_annEventInfo3 * CAnimo::getEventInfo(int event) {
    return event >= 0 && event < GetNOE() ? &events_[at(event)] : nullptr;
}

_anmFrameInfo3 * CAnimo::getFrameInfo(int event, int entry) {
    return has(event, entry) ? &events_[at(event)].infos[at(entry)] : nullptr;
}
