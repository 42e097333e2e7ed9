#include "script/CMC_Condition.h"

#include "script/CMC_Behaviour.h"
#include "script/CMC_Behaviour_Entry.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_Runner.h"
#include "script/CMElement.h"
#include "script/Notes.h"

#include <utility>

const char * const CMC_Condition::kKeys[3] = {"OPERAND1", "OPERAND2", "OPERATOR"};

namespace {

using namespace comparison;

constexpr struct {
    const char * word; // of the key OPERATOR
    int code;
} kWords[] = {{"EQUAL", kEqual},          {"NOTEQUAL", kNotEqual}, {"LESS", kLess},
              {"LESSEQUAL", kLessEqual},  {"GREATER", kGreater},   {"GREATEREQUAL", kGreaterEqual},
              {"INSTANCEOF", kInstanceOf}};

constexpr struct {
    const char * sign; // in statements
    int code;
} kSigns[] = {{"_", kEqual},      {"!_", kNotEqual}, {"<>", kNotEqual},     {"<", kLess},
              {"<_", kLessEqual}, {">", kGreater},   {">_", kGreaterEqual}, {"?", kInstanceOf}};

// In a single text an apostrophe stands for the equals sign.
constexpr char kApostrophe = '\'';

bool isComparable(CMC_Object * result) {
    return types::isValue(result->getType()) || result->getType() == types::kExpression;
}

bool holds(int code, CMC_Variable * a, CMC_Variable * b) {
    switch (code) {
    case kEqual: return a->equals(b);
    case kNotEqual: return !a->equals(b);
    case kLess: return a->compare(b) < 0;
    case kLessEqual: return a->compare(b) <= 0;
    case kGreater: return a->compare(b) > 0;
    case kGreaterEqual: return a->compare(b) >= 0;
    default: return false;
    }
}

// Objects that are no values are equal to themselves alone, and have no order.
bool holds(int code, CMC_Object * a, CMC_Object * b) {
    return code == kEqual ? a == b : code == kNotEqual && a != b;
}

} // namespace

int comparison::codeOf(std::string_view sign) {
    for (const auto & each : kSigns)
        if (sign == each.sign) return each.code;
    return kEqual;
}

CMC_Condition::CMC_Condition(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_BasicCondition(scope, element, types::kCondition),
      owner_(std::make_unique<CMC_Behaviour>(scope)),
      operand1_(element->getPropertyValue("OPERAND1")),
      operand2_(element->getPropertyValue("OPERAND2")) {
    CXString word = element->getPropertyValue("OPERATOR");
    for (const auto & each : kWords)
        if (word == each.word) operator_ = each.code;
    if (operator_ == kNone)
        notes::add(notes::Kind::other, scope ? scope->getName().view() : "", name_.view(),
                   "the operator \"" + std::string(word.view()) + "\" is none; the condition is false");
    initializeBehaviours(scope, element);
}

CMC_Condition::~CMC_Condition() { dropEntries(); }

void CMC_Condition::dropEntries() {
    // An operand may be what is running.
    life::bury(std::exchange(operand1Entry_, nullptr));
    life::bury(std::exchange(operand2Entry_, nullptr));
}

void CMC_Condition::init() {
    dropEntries();
    operand1Entry_ = new CMC_Behaviour_Entry(owner_.get(), operand1_);
    operand2Entry_ = new CMC_Behaviour_Entry(owner_.get(), operand2_);
    CMC_BasicCondition::init();
}

bool CMC_Condition::done(bool all) {
    dropEntries();
    return CMC_BasicCondition::done(all);
}

CMC_BasicCondition::Outcome CMC_Condition::test() {
    CMC_Object * a = operand1Entry_ ? operand1Entry_->run(nullptr, nullptr) : nullptr;
    CMC_Object * b = operand2Entry_ ? operand2Entry_->run(nullptr, nullptr) : nullptr;
    Outcome outcome = Outcome::no;
    if (a && b) {
        if (isComparable(a) && isComparable(b))
            outcome = holds(operator_, static_cast<CMC_Variable *>(a), static_cast<CMC_Variable *>(b))
                          ? Outcome::yes
                          : Outcome::no;
        else if (a->getType() == b->getType())
            outcome = holds(operator_, a, b) ? Outcome::yes : Outcome::no;
        else
            outcome = Outcome::unknown; // nothing converts to such a type
    }
    CMC_Object::flush(a);
    CMC_Object::flush(b);
    return outcome;
}

bool CMC_Condition::valid(CMC_ObjectsContainer * scope, const CXString & text) {
    int code = kEqual;
    int at = text.Find(kApostrophe);
    int end = at;
    if (at >= 0) {
        switch (at > 0 ? text.GetAt(at - 1) : '\0') {
        case '!': code = kNotEqual; break;
        case '<': code = kLessEqual; break;
        case '>': code = kGreaterEqual; break;
        default: break;
        }
        if (code != kEqual) end--;
    } else {
        constexpr std::pair<char, int> kSingle[] = {{'<', kLess}, {'>', kGreater}, {'?', kInstanceOf}};
        for (auto [sign, meaning] : kSingle) {
            end = at = text.Find(sign);
            code = meaning;
            if (at >= 0) break;
        }
    }
    if (at < 0) {
        notes::add(notes::Kind::other,
                   "a comparison without an operator is false: " + std::string(text.view()));
        return false;
    }
    return valid(scope, text.Left(end), text.Right(at + 1), code);
}

bool CMC_Condition::valid(CMC_ObjectsContainer * scope, const CXString & left, const CXString & right,
                          const CXString & op) {
    return valid(scope, left, right, codeOf(op.view()));
}

bool CMC_Condition::valid(CMC_ObjectsContainer * scope, const CXString & left, const CXString & right,
                          int op) {
    if (!scope) return false;
    life::Guard guard;
    const std::size_t trash = CMC_Behaviour::trashSize();
    CMC_Object * a = CMC_Behaviour::resolveParameter(scope, nullptr, left, nullptr);
    CMC_Object * b = CMC_Behaviour::resolveParameter(scope, nullptr, right, nullptr);
    bool outcome = false;
    if (op == kInstanceOf) {
        CMC_Object * object = scope->getObject(left);
        outcome = object && right == typeToString(object->getType());
    } else if (a && b) {
        auto value = [](CMC_Object * result) {
            return isComparable(result) ? static_cast<CMC_Variable *>(result) : CMC_Runner::valueOf(result);
        };
        outcome = holds(op, value(a), value(b));
    }
    CMC_Object::flush(a);
    CMC_Object::flush(b);
    CMC_Behaviour::cutTrash(trash);
    return outcome;
}
