#include "input/CMC_Keyboard.h"

#include "app/CWindow.h"
#include "core/CInteger.h"
#include "input/KeyCodes.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"

#include <algorithm>

const char * const CMC_Keyboard::kSignals[6] = {"ONINIT", "ONDONE",    "ONSIGNAL",
                                                "ONCHAR", "ONKEYDOWN", "ONKEYUP"};

CMC_Keyboard::CMC_Keyboard(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kKeyboard), window_(scope ? scope->getWindow() : nullptr) {
    if (window_) window_->registerKeyListener(this);
    initializeBehaviours(scope, element);
}

CMC_Keyboard::~CMC_Keyboard() {
    if (window_) window_->removeKeyListener(this);
    for (CXObject * each : latestKeys_) delete each;
}

CMC_Runner * CMC_Keyboard::getRunner() { return CMC_RunnerFactory::getRunner(types::kKeyboard); }

bool CMC_Keyboard::done(bool all) {
    bool ended = CMC_Object::done(all);
    if (window_) window_->removeKeyListener(this);
    return ended;
}

CMC_Object * CMC_Keyboard::mergesWith(CMC_ObjectsContainer * scope, CMElement *) {
    return scope->getObject("KEYBOARD");
}

CKeyboard * CMC_Keyboard::getKeyboard() const { return window_ ? window_->getKeyboard() : nullptr; }

CXString CMC_Keyboard::getKeySignal(int code) { return keys::nameOf(code); }

void CMC_Keyboard::raise(int signal, const CXString & qualifier) {
    if (!enabled_ || !isSignalBound(signal)) return;
    const CXString name = kSignals[signal];
    life::Alive alive(this);
    onSignal(name + "^" + qualifier);
    if (alive) onSignal(name);
}

bool CMC_Keyboard::onKeyDown(int code) {
    raise(kOnKeyDown, getKeySignal(code));
    return false;
}

bool CMC_Keyboard::onKeyUp(int code) {
    raise(kOnKeyUp, getKeySignal(code));
    return false;
}

bool CMC_Keyboard::onChar(unsigned char c) {
    if (!enabled_ || c == 0) return false;
    latestKeys_.push(new CInteger(c));
    if (latestKeys_.size > kLatestKeys) delete latestKeys_.pop();
    CXString typed;
    typed += static_cast<char>(c);
    raise(kOnChar, typed);
    return false;
}

CXString CMC_Keyboard::getLatestKeys(int count) {
    CXString text;
    int size = latestKeys_.size;
    for (int i = size - std::clamp(count, 0, size); i < size; i++)
        text += static_cast<char>(static_cast<CInteger *>(latestKeys_.at(i))->toInt());
    return text;
}
