#include "core/CXTimer.h"

#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "platform/World.h"

bool CXTimer::enabled = true;

namespace {

std::uint32_t now() { return platform::world().clock->tickCount(); }

} // namespace

CXTimer::~CXTimer() {
    for (CXObject * timer : timers) delete timer;
}

CTimerObject * CXTimer::append(int id, unsigned interval) {
    auto * timer = new CTimerObject;
    timer->id = id;
    timer->interval = interval;
    timer->lastTime = now();
    timers.add(timer);
    return timer;
}

void CXTimer::add(int id, unsigned interval, CUnit6 * unit, bool onlyWhenActive) {
    CTimerObject * timer = append(id, interval);
    timer->unit = unit;
    timer->onlyWhenActive = onlyWhenActive;
}

void CXTimer::add(int id, unsigned interval, CWindow * window) { append(id, interval)->window = window; }

void CXTimer::add(int id, unsigned interval, CTimerNotificator * notificator) {
    append(id, interval)->notificator = notificator;
}

// A removed timer is as good as gone, so that an id can be given again before the next pass.
CTimerObject * CXTimer::find(int id) {
    for (CXObject * each : timers) {
        auto * timer = static_cast<CTimerObject *>(each);
        if (timer->id == id && !timer->removed) return timer;
    }
    return nullptr;
}

void CXTimer::remove(int id) {
    if (CTimerObject * timer = find(id)) timer->removed = true;
}

void CXTimer::reset(int id) {
    if (CTimerObject * timer = find(id)) timer->lastTime = now();
}

void CXTimer::pause() {
    std::uint32_t t = now();
    for (CXObject * each : timers) {
        auto * timer = static_cast<CTimerObject *>(each);
        timer->pauseDelta = t - timer->lastTime;
    }
}

void CXTimer::resume() {
    std::uint32_t t = now();
    for (CXObject * each : timers) {
        auto * timer = static_cast<CTimerObject *>(each);
        timer->lastTime = t - timer->pauseDelta;
    }
}

void CXTimer::deliver(CTimerObject & timer) {
    if (timer.unit) {
        if (!timer.onlyWhenActive || timer.unit->isActive()) timer.unit->onTimer(timer.id);
    } else if (timer.notificator) {
        timer.notificator->onTimer(timer.id);
    } else if (timer.window) {
        timer.window->OnTimer(timer.id);
    }
}

void CXTimer::domodal() {
    if (!enabled) return;
    // A target may add and remove timers: the pass goes over a copy, and only a pass deletes; one inside
    // another leaves that to the outer one, which still holds them.
    CXVector inner(std::max(timers.size * 2, 1), 0.75F);
    bool isOuter = passes_++ == 0;
    CXVector & pass = isOuter ? work : inner;
    pass.removeAll();
    pass.add(&timers);
    for (int i = 0; i < pass.size; i++) {
        auto * timer = static_cast<CTimerObject *>(pass.at(i));
        if (timer->removed) {
            if (!isOuter) continue;
            timers.remove(timer);
            delete timer;
        } else if (now() - timer->lastTime >= timer->interval) { // in a difference the clock may wrap
            timer->ticks++;
            deliver(*timer);
            timer->lastTime = now();
        }
    }
    passes_--;
}
