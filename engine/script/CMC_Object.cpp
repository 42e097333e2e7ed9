#include "script/CMC_Object.h"

#include "core/CStringHashCode.h"
#include "core/Text.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMElement.h"
#include "script/CMProperties.h"
#include "script/CMProperty.h"
#include "script/Notes.h"

#include <cassert>
#include <utility>

namespace {

constexpr char kQualifier = '^';

// What is bound: the behaviour, its parameters, the scope that bound it. A script may remove the behaviour.
class Binding : public CXTriple {
public:
    Binding(CMC_Behaviour * behaviour, CXArray * params, CMC_ObjectsContainer * scope)
        : CXTriple(behaviour, params, scope), alive_(behaviour) {}
    CMC_Behaviour * behaviour() const { return static_cast<CMC_Behaviour *>(alive_.get()); }
    CXObject * clone() override {
        // Each binding owns its parameters, so that a clone's outlive its source's.
        CXArray * copies = nullptr;
        if (auto * params = static_cast<CXArray *>(getSecond())) {
            copies = new CXArray(101, 0.75F);
            for (int i = 0; i < params->size; i++) copies->add(new CXString(*params->stringAt(i)));
        }
        auto * copy = new Binding(behaviour(), copies, static_cast<CMC_ObjectsContainer *>(getThird()));
        return copy;
    }

private:
    life::Handle alive_;
};

} // namespace

CMC_Object::CMC_Object(const CXString & name, int type) : name_(name), type_(type) {}

CMC_Object::CMC_Object(CMC_ObjectsContainer * scope, CMElement * element, int type)
    : name_(element ? element->getName() : CXString()), scene_(scope), type_(type) {}

CMC_Object::~CMC_Object() {
    flushBehList();
    releaseBindings();
    delete tmpBehList_;
}

void CMC_Object::init() {
    if (isSignalBound(kOnInit)) onSignal("ONINIT");
}

bool CMC_Object::done(bool) {
    if (isSignalBound(kOnDone)) onSignal("ONDONE");
    return true;
}

int CMC_Object::getCloneIdx() {
    int i = name_.FindLast('_', -1);
    if (i <= 0 || i == name_.getLength() - 1) return 0;
    return name_.Right(i + 1).toNumber();
}

CXString CMC_Object::getCloneName() {
    CXString name = name_ + "_";
    name += ++clonesNo_;
    return name;
}

void CMC_Object::clone(CMC_Object * target) {
    if (!target) return;
    target->isClone_ = true;
    target->scene_ = scene_;
    target->name_ = getCloneName();
    target->signalNames_ = signalNames_;
    target->boundSignals_ = boundSignals_;
    target->qualified_ = qualified_;
    if (CXVector * keys = behaviours_ ? behaviours_->getKeys() : nullptr) {
        target->releaseBindings();
        target->behaviours_ = new CHashtable(11, 0.75, true);
        for (CXObject * each : *keys) {
            auto * key = static_cast<CStringHashCode *>(each);
            if (key->view() == "ONINIT") continue;
            auto * bindings = static_cast<CXVector *>(behaviours_->get(key));
            auto * copies = new CXVector(101, 0.75F);
            for (CXObject * binding : *bindings) copies->add(binding->clone());
            target->behaviours_->put(new CStringHashCode(key->view()), copies);
            target->verifyBehaviour(key->getString());
        }
        if (target->behaviours_->getSize() == 0) target->releaseBindings();
        delete keys;
    }
    if (scene_) scene_->addObject(target);
}

void CMC_Object::clone(int count) {
    for (int i = 0; i < count; i++) {
        if (scene_ && scene_->getElementsNo() >= CMC_ObjectsContainer::kMostObjects) {
            notes::add(notes::Kind::other, std::string(name_.view()) + " isn't cloned: its scope is full");
            return;
        }
        clone(clone());
    }
}

int CMC_Object::getBehaviourIndex(const CXString & text) {
    for (std::size_t i = 0; i < signalNames_.size(); i++)
        if (text.view().starts_with(signalNames_[i])) return static_cast<int>(i);
    return -1;
}

int CMC_Object::getSignalIndex(const CXString & signal) const {
    std::string_view bare = signal.view().substr(0, signal.view().find(kQualifier));
    for (std::size_t i = 0; i < signalNames_.size(); i++)
        if (bare == signalNames_[i]) return static_cast<int>(i);
    return -1;
}

void CMC_Object::initializeBehaviours(CMC_ObjectsContainer * scope, CMElement * element) {
    delete tmpBehList_;
    tmpBehList_ = new CXVector(101, 0.75F);
    if (signalNames_.empty()) signalNames_ = getBehavioursList();
    if (signalNames_.empty()) return;
    assert(signalNames_.size() <= 64);
    if (!element || !scope) return;
    CMProperties * properties = element->getProperties();
    for (int p = 0; p < properties->size; p++) {
        auto * property = static_cast<CMProperty *>(properties->at(p));
        const CXString key = property->getName();
        for (std::size_t i = 0; i < signalNames_.size(); i++) {
            if (!key.view().starts_with(signalNames_[i])) continue;
            if (!property->getValue().IsString()) continue;
            CMC_Behaviour * behaviour = nullptr;
            CXArray * params = nullptr;
            CXString value = property->getValue();
            value.AllTrim(' ');
            if (value.GetAt(0) == '{') {
                CXString name = "beh_";
                if (scope->getType() == types::kClass) name += scope->getName() + "_";
                name += name_ + "_" + key;
                behaviour = new CMC_Behaviour(scope, name, value);
                behaviour->init();
                tmpBehList_->add(behaviour);
                scope->addObject(behaviour);
            } else {
                CXString name = value;
                if (int open = value.Find('(', 0); open >= 0) {
                    name = value.Left(open);
                    name.AllTrim(' ');
                    int close = value.Find(')', 0);
                    CXString list = value.Mid(open + 1, close < 0 ? value.getLength() : close);
                    params = list.AllTrim(' ').toVector();
                }
                CMC_Object * found = scope->getObject(name.c_str());
                if (found && found->getType() == types::kBehaviour)
                    behaviour = static_cast<CMC_Behaviour *>(found);
                if (!behaviour)
                    notes::add(notes::Kind::unknownBehaviour, scope->getName().view(), name_.view(),
                               std::string(key.view()) + " names " + std::string(name.view()) +
                                   (found ? ", which is no behaviour" : ", which isn't there"));
            }
            if (!behaviour) {
                CXString::releaseToVector(params);
                continue;
            }
            addBehaviour(key, behaviour, params, scope);
            boundSignals_ |= signalBit(static_cast<int>(i));
        }
    }
}

void CMC_Object::addBehaviour(const CXString & signal, CMC_Behaviour * behaviour, CXArray * params,
                              CMC_ObjectsContainer * scope) {
    if (!verifyBehaviour(signal)) {
        CXString::releaseToVector(params);
        return;
    }
    if (!behaviours_) behaviours_ = new CHashtable(101, 0.75, true);
    if (overrideSignals_) removeBehaviourForce(signal);
    if (int i = getSignalIndex(signal); i >= 0) boundSignals_ |= signalBit(i);
    bindingChanges_++;
    CXVector * bindings = getBehaviour(signal);
    if (!bindings) {
        bindings = new CXVector(101, 0.75F);
        behaviours_->put(new CStringHashCode(signal), bindings);
    }
    bindings->add(new Binding(behaviour, params, scope));
    if (signal.Find(kQualifier, 0) >= 0) qualified_ = true;
}

// The binding may be the one that runs.
void CMC_Object::releaseBinding(CXTriple * binding) {
    life::buryStrings(static_cast<CXArray *>(binding->getSecond()));
    life::bury(binding);
}

// Takes out the bindings that were made from one scope, or all for null.
void CMC_Object::drop(CXVector * bindings, CMC_ObjectsContainer * onlyOf) {
    if (!bindings) return;
    for (int i = bindings->size; i-- > 0;) {
        auto * binding = static_cast<CXTriple *>(bindings->at(i));
        if (onlyOf && binding->getThird() != onlyOf) continue;
        bindings->removeAt(i);
        bindingChanges_++;
        releaseBinding(binding);
    }
}

void CMC_Object::removeBehaviour(const CXString & signal, CMC_ObjectsContainer * scope) {
    if (scope) drop(getBehaviour(signal), scope);
}

void CMC_Object::removeBehaviourForce(const CXString & signal) { drop(getBehaviour(signal), nullptr); }

void CMC_Object::releaseBindings() {
    CHashtable * table = std::exchange(behaviours_, nullptr);
    if (!table) return;
    bindingChanges_++;
    CXVector * lists = table->getElements();
    for (CXObject * each : *lists) {
        drop(static_cast<CXVector *>(each), nullptr);
        delete each;
    }
    delete table;
    qualified_ = false;
}

void CMC_Object::removeAllBehaviours() {
    signalNames_ = {};
    releaseBindings();
    delete std::exchange(tmpBehList_, nullptr);
    boundSignals_ = 0;
}

void CMC_Object::flushBehList() {
    signalNames_ = {};
    boundSignals_ = 0;
}

CXVector * CMC_Object::getBehaviour(const CXString & signal) {
    if (!behaviours_) return nullptr;
    static CStringHashCode key("temp");
    key.set(signal.view());
    return static_cast<CXVector *>(behaviours_->get(&key));
}

CXTriple * CMC_Object::getSingleBehaviour(const CXString & signal, int index) {
    CXVector * bindings = getBehaviour(signal);
    return bindings && index >= 0 && index < bindings->size ? static_cast<CXTriple *>(bindings->at(index))
                                                            : nullptr;
}

bool CMC_Object::onSignal(const CXString & signal) {
    CXVector * bindings = getBehaviour(signal);
    if (!bindings || bindings->size == 0) return false;
    life::Guard guard;
    // A behaviour may bind and unbind, even this very signal: then the list is asked for anew.
    std::uint32_t changes = bindingChanges_;
    for (int i = 0; bindings && i < bindings->size; i++) {
        auto * binding = static_cast<Binding *>(bindings->begin()[i]);
        if (CMC_Behaviour * behaviour = binding->behaviour())
            behaviour->run(this, static_cast<CXArray *>(binding->getSecond()), true);
        if (changes == bindingChanges_) continue;
        changes = bindingChanges_;
        bindings = getBehaviour(signal);
    }
    return true;
}

void CMC_Object::runFirstBinding(const CXString & signal) {
    auto * binding = static_cast<Binding *>(getSingleBehaviour(signal, 0));
    if (!binding) return;
    life::Guard guard;
    if (CMC_Behaviour * behaviour = binding->behaviour())
        behaviour->run(this, static_cast<CXArray *>(binding->getSecond()), true);
}

bool CMC_Object::onSignal(const CXString & signal, CXArray * args) {
    CXVector * bindings = getBehaviour(signal);
    if (!bindings || bindings->size == 0) return false;
    life::Guard guard;
    for (int i = 0; bindings && i < bindings->size; i++) {
        auto * binding = static_cast<CXTriple *>(bindings->at(i));
        void * params = binding->getSecond();
        binding->setSecond(args);
        onSignal(signal);
        binding->setSecond(params); // it is there at least as long as the guard
        bindings = getBehaviour(signal);
    }
    return true;
}

void CMC_Object::onSceneDone(CMC_ObjectsContainer * scope) {
    CXVector * keys = behaviours_ ? behaviours_->getKeys() : nullptr;
    if (!keys) return;
    for (CXObject * each : *keys) {
        auto * bindings = static_cast<CXVector *>(behaviours_->get(each));
        if (!bindings) continue;
        drop(bindings, scope);
        if (bindings->size > 0) continue;
        behaviours_->remove(each, bindings);
        bindingChanges_++;
        delete bindings;
    }
    delete keys;
}
