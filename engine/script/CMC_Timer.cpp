#include "script/CMC_Timer.h"

#include "app/CWindow.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"
#include "script/TimerIds.h"

#include <algorithm>
#include <utility>

const char * const CMC_Timer::kSignals[4] = {"ONINIT", "ONDONE", "ONSIGNAL", "ONTICK"};
const char * const CMC_Timer::kKeys[3] = {"ENABLED", "TICKS", "ELAPSE"};

namespace {

unsigned interval(int milliseconds) { return static_cast<unsigned>(std::max(milliseconds, 0)); }

} // namespace

CMC_Timer::CMC_Timer(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kTimer),
      window_(scope ? scope->getWindow() : nullptr),
      enabled_(element->getPropertyBoolValue("ENABLED")),
      maxTicks_(element->getPropertyIntValue("TICKS")),
      elapse_(element->getPropertyValue("ELAPSE")) {
    if (timers()) {
        timerId_ = timerids::next();
        timers()->add(timerId_, interval(elapse_.toNumber()), this);
    }
    initializeBehaviours(scope, element);
}

CMC_Timer::~CMC_Timer() { unregister(); }

bool CMC_Timer::done(bool all) {
    unregister();
    return CMC_Object::done(all);
}

CMC_Runner * CMC_Timer::getRunner() { return CMC_RunnerFactory::getRunner(types::kTimer); }

CXTimer * CMC_Timer::timers() const { return window_ ? window_->getTimer() : nullptr; }

void CMC_Timer::unregister() {
    if (int id = std::exchange(timerId_, 0)) timers()->remove(id);
}

void CMC_Timer::onTimer(int) {
    if (!enabled_) return;
    ticks_++;
    if (maxTicks_ > 0 && ticks_ == maxTicks_) enabled_ = false; // this last tick is still told
    if (isSignalBound(kOnTick))
        onQualifiedSignal("ONTICK", [ticks = ticks_] { return CXString::toString(ticks); });
}

void CMC_Timer::enable() {
    if (enabled_) return;
    enabled_ = true;
    reset();
}

void CMC_Timer::disable() { enabled_ = false; }

void CMC_Timer::pause() {
    enabled_ = false;
    if (timers()) timers()->pause();
}

void CMC_Timer::resume() {
    if (enabled_) return;
    enabled_ = true;
    if (timers()) timers()->resume();
}

void CMC_Timer::set(int ticks) {
    if (timers()) timers()->reset(timerId_);
    ticks_ = ticks;
}

void CMC_Timer::setElapse(int milliseconds) {
    CTimerObject * entry = timerId_ ? timers()->find(timerId_) : nullptr;
    if (entry) entry->interval = interval(milliseconds);
}
