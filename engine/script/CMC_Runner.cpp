#include "script/CMC_Runner.h"

#include "core/CInteger.h"
#include "core/Diagnostics.h"
#include "script/CMC_Array.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_Behaviour_Runner.h"
#include "script/CMC_Expression.h"
#include "script/CMC_Groupped.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/Notes.h"

namespace {

// Signals stand in code with "$" for "^", which would cut the statement.
CXString signalText(const Call & call) {
    CXString signal = call.text(0);
    signal.Replace('$', '^');
    return signal;
}

CMC_Variable * send(Call & call) {
    CXString text = call.text(0);
    call.object->onSignal(text.GetAt(0) == '@' ? text : "ONSIGNAL^" + text);
    return nullptr;
}

CMC_Variable * addToGroup(Call & call) {
    if (auto * group = call.named<CMC_Groupped>(0, types::kGroup)) group->add(call.object);
    return nullptr;
}

CMC_Variable * addToArray(Call & call) {
    auto * array = call.named<CMC_Array>(0, types::kArray);
    if (array && types::isValue(call.object->getType())) array->add(call.self<CMC_Variable>());
    return nullptr;
}

CMC_Variable * getName(Call & call) { return result(call.object->getName()); }

CMC_Variable * clone(Call & call) {
    call.object->clone(call.integer(0, 1));
    return nullptr;
}

CMC_Variable * addBehaviour(Call & call) {
    CXString signal = signalText(call);
    auto * behaviour = call.named<CMC_Behaviour>(1, types::kBehaviour);
    // Binding nothing silences the signal.
    if (!behaviour) notes::add(notes::Kind::unknownBehaviour, call.text(1).view());
    CXArray * params = call.count() > 2 ? code::arguments(call, 2) : nullptr;
    call.object->addBehaviour(signal, behaviour, params, call.scope);
    return nullptr;
}

CMC_Variable * getCloneIndex(Call & call) { return result(call.object->getCloneIdx()); }

CMC_Variable * msgBox(Call & call) {
    dispMsgBox(nullptr, call.object->getName() + " (" + CMC_Object::typeToString(call.object->getType()) +
                            ")" + " : " + call.object->toString());
    return nullptr;
}

CMC_Variable * resetClones(Call & call) {
    call.object->resetClones();
    return nullptr;
}

CMC_Variable * removeBehaviour(Call & call) {
    call.object->removeBehaviour(signalText(call), call.scope);
    return nullptr;
}

CMC_Variable * getClonesNo(Call & call) { return result(call.object->getClonesNo()); }

CMC_Variable * removeAllBehaviours(Call & call) {
    call.object->removeAllBehaviours();
    return nullptr;
}

CMC_Variable * removeBehaviourForce(Call & call) {
    call.object->removeBehaviourForce(signalText(call));
    return nullptr;
}

CMC_Variable * overideSignals(Call & call) {
    if (call.has(0))
        call.object->overideSignals(call.boolean(0));
    else
        dispMsgBox(nullptr, CXString("induficient parameters passed to overideSignals, expecting one bool") +
                                " : " + call.object->getName());
    return nullptr;
}

constexpr MethodRow kCommon[] = {
    {96, "SEND", "text", 1, send},
    {97, "ADDTOGROUP", "group name", 1, addToGroup},
    {98, "ADDTOARRAY", "array name", 1, addToArray},
    {99, "GETNAME", "", 0, getName},
    {100, "CLONE", "count = 1", 0, clone},
    {101, "ADDBEHAVIOUR", "signal, behaviour name, arguments ...", 2, addBehaviour},
    {102, "GETCLONEINDEX", "", 0, getCloneIndex},
    {103, "MSGBOX", "", 0, msgBox},
    {104, "RESETCLONES", "", 0, resetClones},
    {105, "REMOVEBEHAVIOUR", "signal", 1, removeBehaviour},
    {106, "GETCLONESNO", "", 0, getClonesNo},
    {107, "REMOVEALLBEHAVIOURS", "", 0, removeAllBehaviours},
    {108, "REMOVEBEHAVIOURFORCE", "signal", 1, removeBehaviourForce},
    {109, "OVERIDESIGNALS", "bool", 0, overideSignals},
};

template <class Value>
Value * handedBack(Value * value) {
    CMC_VariableFactory::free(value);
    return value;
}

} // namespace

CMC_Runner::~CMC_Runner() = default;

std::span<const MethodRow> CMC_Runner::commonRows() { return kCommon; }

void CMC_Runner::prepareMthHashSet() {
    methods_ = std::make_unique<CHashtable>(101, 0.75, true);
    auto enter = [this](const MethodRow & row) {
        auto id = static_cast<std::size_t>(row.id);
        if (byId_.size() <= id) byId_.resize(id + 1);
        byId_[id] = &row;
        if (!row.name) return;
        ids_.push_back(std::make_unique<CInteger>(row.id));
        methods_->put(new CStringHashCode(row.name), ids_.back().get());
    };
    // A type's own method of a common name goes first.
    for (const MethodRow & row : rows_) enter(row);
    for (const MethodRow & row : kCommon) enter(row);
}

int CMC_Runner::resolveMethod(const CXString & name) {
    key_.set(name.view());
    CXObject * id = methods_->get(&key_);
    return id ? static_cast<CInteger *>(id)->toInt() : kUnknown;
}

// An expression's value as of now, the name of anything else.
CMC_Variable * CMC_Runner::valueOfOther(CMC_Object * object) {
    if (object->getType() == types::kExpression) {
        auto * expression = static_cast<CMC_Expression *>(object);
        expression->calculate();
        return expression->getValue();
    }
    return handedBack(CMC_VariableFactory::string(object->getName()));
}

void CMC_Runner::noteTooFew(CMC_Object * object, const MethodRow & row) {
    notes::add(notes::Kind::tooFewParameters, std::string(object->getName().view()) + "^" +
                                                  (row.name ? row.name : "?") + " needs: " + row.parameters);
}

CMC_Variable * CMC_Runner::getParameter(CXVector * params, int i) {
    return params && i >= 0 && i < params->size ? valueOf(params->at(i)) : nullptr;
}

CMC_Bool * CMC_Runner::getParameterBool(CXVector * params, int i) {
    CMC_Variable * value = getParameter(params, i);
    if (value && value->getType() == types::kBool) return static_cast<CMC_Bool *>(value);
    return handedBack(CMC_VariableFactory::boolean(value && value->asBool()));
}

CMC_Double * CMC_Runner::getParameterDouble(CXVector * params, int i) {
    CMC_Variable * value = getParameter(params, i);
    if (value && value->getType() == types::kDouble) return static_cast<CMC_Double *>(value);
    return handedBack(CMC_VariableFactory::real(value ? value->asDouble() : 0.0));
}

CMC_Integer * CMC_Runner::getParameterInteger(CXVector * params, int i) {
    CMC_Variable * value = getParameter(params, i);
    if (value && value->getType() == types::kInteger) return static_cast<CMC_Integer *>(value);
    return handedBack(CMC_VariableFactory::integer(value ? value->asInteger() : 0));
}

CMC_String * CMC_Runner::getParameterString(CXVector * params, int i) {
    CMC_Variable * value = getParameter(params, i);
    if (value && value->getType() == types::kString) return static_cast<CMC_String *>(value);
    return handedBack(CMC_VariableFactory::string(value ? value->asString() : CXString()));
}

CMC_Variable * CMC_Runner::run(int id, CMC_Object * object, CMC_ObjectsContainer * scope, CXVector * params) {
    const MethodRow * row = rowOf(id);
    return row ? run(*row, object, scope, params) : nullptr;
}

CMC_Variable * CMC_Runner::run(const CXString & name, CMC_Object * object, CMC_ObjectsContainer * scope,
                               CXVector * params) {
    int id = resolveMethod(name);
    if (id == kUnknown)
        notes::add(notes::Kind::unknownMethod,
                   std::string(object->getName().view()) + " (" +
                       std::string(CMC_Object::typeToString(object->getType()).view()) + ") has no method " +
                       std::string(name.view()));
    return run(id, object, scope, params);
}

CMC_Object * Call::named(int i) const {
    CMC_Variable * v = value(i);
    return v && scope ? scope->getObject(v->asString()) : nullptr;
}

bool Call::lacks(int needed) const {
    for (int i = 0; i < needed; i++) {
        if (has(i)) continue;
        CMC_Runner::noteTooFew(object, row);
        return true;
    }
    return false;
}
