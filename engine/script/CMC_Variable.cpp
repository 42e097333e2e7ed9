#include "script/CMC_Variable.h"

#include "app/CWindow.h"
#include "core/Text.h"
#include "files/CConfig.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Notes.h"

#include <algorithm>

const char * const CMC_Variable::kSignals[6] = {"ONINIT",    "ONDONE",          "ONSIGNAL",
                                                "ONCHANGED", "ONBRUTALCHANGED", "ONNETCHANGE"};
const char * const CMC_Variable::kKeys[5] = {"TYPE", "VALUE", "DEFAULT", "TOINI", "NETNOTIFY"};

namespace {

const CXString kChanged("ONCHANGED"), kBrutalChanged("ONBRUTALCHANGED");

CConfig * settings(CMC_Variable * variable) {
    CMC_ObjectsContainer * scope = variable->getScene();
    CConfig * config = scope ? scope->getConfig() : nullptr;
    if (!config)
        notes::add(notes::Kind::noSettings, scope ? scope->getName().view() : "", variable->getName().view(),
                   "TOINI needs a settings file, and the game has none");
    return config;
}

} // namespace

CMC_Variable::CMC_Variable(CMC_ObjectsContainer * scope, CMElement * element, int type)
    : CMC_Object(scope, element, type),
      id_(-1),
      toIni_(element->getPropertyBoolValue("TOINI")),
      netNotify_(element->getPropertyBoolValue("NETNOTIFY")) {}

CMC_Runner * CMC_Variable::getRunner() { return CMC_RunnerFactory::getRunner(types::kInteger); }

CMC_Variable * CMC_Variable::convert(int type) {
    if (type == getType()) return this;
    // Back to the pool first; the rotation keeps the value readable for this step.
    CMC_Object::flush(this);
    switch (type) {
    case types::kInteger: return CMC_VariableFactory::integer(asInteger());
    case types::kString: return CMC_VariableFactory::string(asString());
    case types::kBool: return CMC_VariableFactory::boolean(asBool());
    case types::kDouble: return CMC_VariableFactory::real(asDouble());
    default: return nullptr;
    }
}

void CMC_Variable::onChange(bool changed) {
    if (isQuiet()) return;
    life::Guard guard;
    life::Handle self(this);
    auto value = [this] { return toString(); };
    if (isSignalBound(kOnBrutalChanged)) onQualifiedSignal(kBrutalChanged, value);
    if (!changed || !self.get()) return;
    if (isSignalBound(kOnChanged)) onQualifiedSignal(kChanged, value);
    if (!self.get()) return;
    if (toIni_)
        if (CConfig * config = settings(this))
            config->PutString(getScene()->getName(), getName(), toString());
    if (netNotify_ && !fromNet_ && getScene()) {
        for (const char * peer : {"NETSERVER", "NETCLIENT"}) {
            CMC_Object * object = getScene()->getObject(peer);
            if (object && object->netSend(this)) break;
        }
    }
}

void CMC_Variable::onNetChange(CMC_Variable * source) {
    life::Guard guard;
    life::Handle self(this);
    fromNet_ = true;
    set(source);
    if (!self.get()) return;
    fromNet_ = false;
    if (isSignalBound(kOnNetChange)) onQualifiedSignal("ONNETCHANGE", [this] { return toString(); });
}

void CMC_Variable::init() {
    life::Guard guard;
    life::Handle self(this);
    CConfig * config = toIni_ ? settings(this) : nullptr;
    if (config) {
        CXString kept = config->GetString(getScene()->getName(), getName());
        if (kept.IsString()) {
            CMC_Variable * value = CMC_VariableFactory::string(kept);
            set(value);
            CMC_Object::flush(value);
            if (!self.get()) return; // a handler of the change removed it
        } else {
            config->PutString(getScene()->getName(), getName(), toString());
        }
    }
    CMC_Object::init();
}

bool CMC_Variable::isNumber(std::string_view text) {
    auto digit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.empty() || (text[0] != '-' && !digit(text[0]))) return false;
    if (text.size() > 1 && text[0] == '0' && text[1] != '.') return false;
    return std::all_of(text.begin() + 1, text.end(), [&](char c) { return digit(c) || c == '.'; });
}

CMC_Variable * CMC_Variable::resolve(std::string_view text) {
    if (!text.empty() && text[0] == '"') {
        text.remove_prefix(1);
        if (text.ends_with('"')) text.remove_suffix(1);
        return CMC_VariableFactory::string(text);
    }
    if (isNumber(text)) {
        if (text.find('.') != std::string_view::npos) return CMC_VariableFactory::real(text::toDouble(text));
        return CMC_VariableFactory::integer(text::toInt(text));
    }
    if (text == "TRUE" || text == "FALSE") return CMC_VariableFactory::boolean(text == "TRUE");
    return CMC_VariableFactory::string(text);
}
