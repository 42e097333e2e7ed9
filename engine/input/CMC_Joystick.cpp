#include "input/CMC_Joystick.h"

#include "app/CWindow.h"
#include "platform/World.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"

const char * const CMC_Joystick::kSignals[3] = {"ONINIT", "ONDONE", "ONSIGNAL"};
const char * const CMC_Joystick::kKeys[1] = {"PORT"};

CMC_Joystick::CMC_Joystick(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kJoystick),
      window_(scope ? scope->getWindow() : nullptr),
      port_(element->getPropertyIntValue("PORT")) {
    tick();
    told_ = read_; // how it stands at the start is no change
    if (window_) window_->addIPoller(this);
    initializeBehaviours(scope, element);
}

CMC_Joystick::~CMC_Joystick() {
    if (window_) window_->removeIPoller(this);
}

CMC_Runner * CMC_Joystick::getRunner() { return CMC_RunnerFactory::getRunner(types::kJoystick); }

bool CMC_Joystick::done(bool all) {
    bool ended = CMC_Object::done(all);
    if (window_) window_->removeIPoller(this);
    return ended;
}

void CMC_Joystick::tick() {
    platform::Joysticks::State state;
    if (platform::world().joysticks->read(port_, state)) read_ = state;
}

void CMC_Joystick::flushSignals(bool deliver) {
    if (read_ == told_) return;
    told_ = read_;
    if (deliver && isSignalBound(kOnSignal)) onSignal("ONSIGNAL");
}

bool CMC_Joystick::getButtonState(int n) const {
    return n >= 0 && n < 32 && (told_.buttons >> static_cast<unsigned>(n) & 1U) != 0;
}

int CMC_Joystick::getAxis(int n) const {
    auto place = static_cast<std::size_t>(n);
    return n >= 0 && place < told_.axes.size() ? told_.axes[place] : 0;
}
