#include "script/CMC_Dummy_Runner.h"

#include "core/Diagnostics.h"
#include "core/Text.h"
#include "platform/World.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_Behaviour_Runner.h"
#include "script/CMC_BlockName.h"
#include "script/CMC_Condition.h"
#include "script/CMC_Expression.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/Control.h"
#include "script/Conversions.h"
#include "script/TypeTable.h"

#include <optional>

namespace {

// The code that a parameter stands for: a block, the name of a behaviour, or text that is compiled for this
// statement and dropped at its end.
class Code {
public:
    Code(const Call & call, int i) {
        CXObject * parameter = i < call.count() ? call.params->at(i) : nullptr;
        if (CMC_BlockName * name = CMC_BlockName::of(parameter)) {
            behaviour_ = life::Handle(name->block());
            return;
        }
        CXString text = call.text(i);
        text.AllTrim(' ');
        if (!text.IsString()) return;
        if (CMC_Object * found = call.scope->getObject(text)) {
            if (found->getType() == types::kBehaviour) behaviour_ = life::Handle(found);
            return;
        }
        temporary_ = new CMC_Behaviour(call.scope, "temp", text);
        temporary_->init();
        behaviour_ = life::Handle(temporary_);
    }
    ~Code() {
        if (behaviour_.get() == temporary_) delete temporary_; // else it ended itself
    }
    Code(const Code &) = delete;
    Code & operator=(const Code &) = delete;

    CMC_Behaviour * behaviour() const { return static_cast<CMC_Behaviour *>(behaviour_.get()); }
    // Whether a BREAK ended it; false when there is nothing to run.
    bool run(CMC_Object * self, bool useCondition) const {
        CMC_Behaviour * now = behaviour();
        return now && now->run(self, nullptr, useCondition);
    }

private:
    life::Handle behaviour_;
    CMC_Behaviour * temporary_ = nullptr;
};

CMC_Variable * orBreak(bool broken) { return broken ? control::breakSignal() : nullptr; }

// ---------------------------------------------------------------------------------------------- IF, WHILE

// The outcome where both sides are whole numbers already: their texts would read back as the same numbers.
std::optional<bool> compareNumbers(const Call & call) {
    CMC_Variable * left = call.value(0);
    CMC_Variable * op = call.value(1);
    CMC_Variable * right = call.value(2);
    if (!left || !op || !right) return std::nullopt;
    if (left->getType() != types::kInteger || right->getType() != types::kInteger ||
        op->getType() != types::kString)
        return std::nullopt;
    int a = static_cast<CMC_Integer *>(left)->getValue(), b = static_cast<CMC_Integer *>(right)->getValue();
    switch (comparison::codeOf(static_cast<CMC_String *>(op)->getValue().view())) {
    case comparison::kNotEqual: return a != b;
    case comparison::kLess: return a < b;
    case comparison::kLessEqual: return a <= b;
    case comparison::kGreater: return a > b;
    case comparison::kGreaterEqual: return a >= b;
    case comparison::kEqual: return a == b;
    default: return std::nullopt;
    }
}

// A chain of comparisons: with "&&" it stops at the first false one, with "||" at the first true one.
bool testChain(CMC_ObjectsContainer * scope, std::string_view text) {
    bool hasOr = text.find("||") != std::string_view::npos;
    std::string_view separator = text.find("&&") != std::string_view::npos ? "&&" : "||";
    bool outcome = false;
    while (true) {
        std::size_t end = text.find(separator);
        outcome = CMC_Condition::valid(scope, CXString(text.substr(0, end)));
        if (end == std::string_view::npos || outcome == hasOr) return outcome;
        text.remove_prefix(end + separator.size());
    }
}

CMC_Variable * ifStatement(Call & call) {
    bool outcome = false;
    int code = 1;
    if (call.count() > 3) {
        std::optional<bool> numbers;
        // A bracket is calculated once, not by each look at it.
        bool plain = static_cast<CMC_Object *>(call.params->at(0)) &&
                     static_cast<CMC_Object *>(call.params->at(2)) &&
                     static_cast<CMC_Object *>(call.params->at(0))->getType() == types::kInteger &&
                     static_cast<CMC_Object *>(call.params->at(2))->getType() == types::kInteger;
        if (plain) numbers = compareNumbers(call);
        if (numbers) {
            outcome = *numbers;
        } else {
            CXString left = call.text(0), op = call.text(1), right = call.text(2);
            outcome = CMC_Condition::valid(call.scope, left, right, op);
        }
        code = 3;
    } else {
        CXString text = call.text(0);
        outcome = text.FindSubString("&&", 0) < 0 && text.FindSubString("||", 0) < 0
                      ? CMC_Condition::valid(call.scope, text)
                      : testChain(call.scope, text.view());
    }
    Code chosen(call, outcome ? code : code + 1);
    return orBreak(chosen.run(chosen.behaviour(), false));
}

CMC_Variable * whileStatement(Call & call) {
    // The texts are taken once; a variable that changes must be named inside quotes.
    const CXString left = call.text(0), op = call.text(1), right = call.text(2);
    Code body(call, 3);
    while (CMC_Condition::valid(call.scope, left, right, op) && CMC_Behaviour::nextTurn())
        body.run(nullptr, false);
    return nullptr;
}

// ---------------------------------------------------------------------------------------------- LOOP, FOR

// The values of a loop: start, count, step. They are read before the loop touches anything, since the
// parameters may be brackets that name the counter of a loop around this one.
struct Turns {
    Turns(const Call & call, int first)
        : start(call.integer(first)),
          end(convert::add(start, call.integer(first + 1))),
          step(call.integer(first + 2)) {}
    const int start, end, step;
};

// Runs code for each value; tell gives it to the script.
template <class Tell>
bool runTurns(const Turns & turns, const Code & body, Tell && tell) {
    const auto [start, end, step] = turns;
    if (start < end) {
        for (int v = start; v < end && CMC_Behaviour::nextTurn(); v = convert::add(v, step)) {
            tell(v);
            if (body.run(nullptr, true)) return true;
        }
    } else {
        for (int v = start; v > end && CMC_Behaviour::nextTurn(); v = convert::add(v, step)) {
            tell(v);
            if (body.run(nullptr, true)) return true;
        }
    }
    return false;
}

CMC_Variable * loop(Call & call) {
    static const CXString kName = "_I_";
    const Turns turns(call, 1);
    Code body(call, 0);
    CMC_Object * outer = call.scope->getObject(kName);
    life::Handle outerAlive(outer);
    if (outer) call.scope->removeObject(outer);
    auto * counter = new CMC_Integer(kName);
    life::Handle alive(counter);
    counter->setScene(call.scope);
    call.scope->addObject(counter);
    bool broken = runTurns(turns, body, [&](int v) {
        if (alive.get()) counter->setValue(v);
    });
    if (alive.get()) {
        call.scope->removeObject(counter);
        life::bury(counter);
    }
    if (outer && outerAlive.get() && outer->getScene() == call.scope) call.scope->addObject(outer);
    return orBreak(broken);
}

CMC_Variable * forStatement(Call & call) {
    CMC_Variable * given = call.value(0);
    bool isNamed = given && given->getType() == types::kInteger && given->scene();
    CMC_Object * variable = isNamed ? given : call.named(0);
    if (!variable || variable->getType() != types::kInteger) return nullptr;
    life::Handle alive(variable);
    const Turns turns(call, 2);
    Code body(call, 1);
    return orBreak(runTurns(turns, body, [&](int v) {
        if (CMC_Object * now = alive.get()) static_cast<CMC_Integer *>(now)->setValue(v);
    }));
}

// ------------------------------------------------------------------------------------ results and variables

CMC_Variable * returnStatement(Call & call) {
    CXString text = call.text(0);
    CMC_ObjectsContainer * scene = call.scope->getScene() ? call.scope->getScene() : call.scope;
    auto * value = new CMC_String(text, "__RETURN__");
    value->setScene(scene);
    scene->addObject(value);
    return result(text);
}

CMC_Variable * breakStatement(Call &) { return control::breakSignal(); }
CMC_Variable * oneBreak(Call &) { return control::oneBreakSignal(); }
CMC_Variable * continueStatement(Call &) { return control::continueSignal(); }

CMC_Variable * conv(Call & call) {
    CMC_Variable * value = call.value(0);
    if (!value) return nullptr;
    CXString type = call.text(1);
    CMC_Variable * made = type == "STRING" ? static_cast<CMC_Variable *>(CMC_VariableFactory::allocString())
                          : type == "INTEGER"
                              ? static_cast<CMC_Variable *>(CMC_VariableFactory::allocInteger())
                          : type == "BOOL"   ? static_cast<CMC_Variable *>(CMC_VariableFactory::allocBool())
                          : type == "DOUBLE" ? static_cast<CMC_Variable *>(CMC_VariableFactory::allocDouble())
                                             : nullptr;
    if (made) made->set(value);
    return made;
}

CMC_Variable * msgBox(Call & call) {
    if (call.count() == 0) return nullptr;
    CXString text = call.text(0);
    for (int i = 1; i < call.count(); i++) text += ", " + call.text(i);
    dispMsgBox(nullptr, text);
    return nullptr;
}

template <class Value>
CMC_Variable * local(Call & call) {
    CXString name = call.text(0);
    if (call.scope->getObject(name)) return nullptr;
    CMC_Variable * value = call.value(1);
    auto * variable = new Value(name);
    if (value) variable->set(value);
    variable->setAsTemporary();
    variable->setScene(call.scope);
    call.scope->addObject(variable);
    call.self<CMC_Behaviour>()->addTempObject(variable);
    return result(variable->getValue());
}

CMC_Variable * valueStatement(Call & call) {
    CMC_Object * object = call.named(0);
    if (!object) return nullptr;
    if (types::isValue(object->getType())) return static_cast<CMC_Variable *>(object);
    // Anything else can't be a result: an expression gives its value, the rest a name.
    if (object->getType() == types::kExpression) return static_cast<CMC_Expression *>(object)->evaluate();
    return result(object->getName());
}

// ------------------------------------------------------------------------------------ timers and the rest

CXString timerName(CMC_ObjectsContainer * scope) {
    CXString name;
    do {
        name = "timer_";
        name += platform::world().random->next();
    } while (scope->getObject(name));
    return name;
}

CMC_Behaviour * timerBehaviour(CMC_ObjectsContainer * scope, const CXString & text) {
    auto * behaviour = new CMC_Behaviour(scope, timerName(scope), text);
    behaviour->init();
    scope->addObject(behaviour);
    return behaviour;
}

CMC_Variable * runOnTimer(Call & call) {
    int interval = call.integer(0), count = call.integer(1);
    CXString text = call.text(2), doneText = call.text(3);
    auto * args = new CXArray(101, 0.75F);
    args->add(new CXString("0"));
    for (int i = 4; i < call.count(); i++) args->add(new CXString(call.text(i)));

    CMC_Object * named = call.scope->getObject(text);
    if (named && named->getType() == types::kBehaviour) text = static_cast<CMC_Behaviour *>(named)->getCode();
    CMC_Behaviour * onDone = nullptr;
    if (CMC_Object * done = call.scope->getObject(doneText)) {
        if (done->getType() == types::kBehaviour) onDone = static_cast<CMC_Behaviour *>(done);
    } else if (doneText.IsString()) {
        onDone = timerBehaviour(call.scope, doneText);
    }
    CMC_Behaviour * behaviour = timerBehaviour(call.scope, text);
    behaviour->runOnTimer(interval, count, args, onDone);
    return result(behaviour->getName());
}

CMC_Variable * create(Call & call) {
    CXString type = call.text(0), name = call.text(1);
    const TypeRow * row = typetable::find(type.view());
    if (!row || !row->create) return nullptr;
    CMC_Object * object = row->create(call.scope, name);
    if (object) call.scope->addObject(object);
    return nullptr;
}

CMC_Variable * getApplicationName(Call & call) {
    for (CMC_ObjectsContainer * scope = call.scope; scope; scope = scope->getParent())
        if (scope->getType() == types::kApplication) return result(scope->getName());
    return result("");
}

CMC_Variable * getCurrentScene(Call & call) {
    CMC_ObjectsContainer * scene = call.scope->getScene();
    return result(scene ? scene->getName() : CXString());
}

constexpr MethodRow kRows[] = {
    {1, "IF", "left, operator, right, code, else code | condition, code, else code", 3, ifStatement},
    {2, "WHILE", "left, operator, right, code", 4, whileStatement},
    {3, "RETURN", "value", 1, returnStatement},
    {4, "BREAK", "", 0, breakStatement},
    {5, "CONV", "value, type name", 2, conv},
    {6, "MSGBOX", "values ...", 0, msgBox},
    {7, "BOOL", "name, value = FALSE", 1, local<CMC_Bool>},
    {8, "DOUBLE", "name, value = 0", 1, local<CMC_Double>},
    {9, "INT", "name, value = 0", 1, local<CMC_Integer>},
    {10, "STRING", "name, value = \"\"", 1, local<CMC_String>},
    {11, "LOOP", "code, start, count, step", 4, loop},
    {12, "VALUE", "name", 1, valueStatement},
    {13, "RUNONTIMER", "interval in ms, count, code, done code = \"\", arguments ...", 3, runOnTimer},
    {14, "CREATE", "type, name", 2, create},
    {15, "GETAPPLICATIONNAME", "", 0, getApplicationName},
    {16, "GETCURRENTSCENE", "", 0, getCurrentScene},
    {17, "ONEBREAK", "", 0, oneBreak},
    {18, "CONTINUE", "", 0, continueStatement},
    {19, "FOR", "variable, code, start, count, step", 5, forStatement},
};

} // namespace

CMC_Dummy_Runner::CMC_Dummy_Runner() : CMC_Runner(kRows) {}
