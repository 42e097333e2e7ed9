#include "script/CMC_Expression.h"

#include "script/CMC_Behaviour.h"
#include "script/CMC_Behaviour_Entry.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Control.h"
#include "script/Notes.h"

#include <utility>

const char * const CMC_Expression::kKeys[3] = {"OPERAND1", "OPERAND2", "OPERATOR"};

namespace {

constexpr std::string_view kOperatorSigns = "+-*@%"; // in the order of their codes
constexpr const char * kOperatorWords[] = {"ADD", "SUB", "MUL", "DIV", "MOD"};

int codeOf(char sign) {
    std::size_t at = kOperatorSigns.find(sign);
    return at == std::string_view::npos ? op::kNone : static_cast<int>(at) + 1;
}

// What an operand gave, as a value that may go back to its pool: a nested bracket is evaluated now, an
// object that is no value gives its name.
CMC_Variable * valueOf(CMC_Object * result) {
    if (!result) return nullptr;
    if (types::isValue(result->getType())) return static_cast<CMC_Variable *>(result);
    if (result->getType() == types::kExpression) return static_cast<CMC_Expression *>(result)->evaluate();
    return CMC_VariableFactory::string(result->getName());
}

// What a leading minus subtracts from; null when the operand is no number.
CMC_Variable * zeroLike(CMC_Variable * operand) {
    switch (operand->getType()) {
    case types::kInteger: return CMC_VariableFactory::integer(0);
    case types::kDouble: return CMC_VariableFactory::real(0.0);
    default: return nullptr;
    }
}

} // namespace

CMC_Expression::CMC_Expression(CMC_ObjectsContainer * scope, const CXString & text, Statements * statements)
    : CMC_Variable("expression", types::kExpression, -1),
      still_(false),
      owner_(std::make_unique<CMC_Behaviour>(scope)) {
    scene_ = scope;
    std::string_view view = text.view();
    if (view.size() >= CMC_Behaviour::kLimit) {
        view = view.substr(0, CMC_Behaviour::kLimit - 1);
        notes::add(notes::Kind::textTooLong,
                   "a bracket is cut at " + std::to_string(CMC_Behaviour::kLimit - 1) + " bytes");
    }
    cut(view);
    parse(statements);
}

CMC_Expression::CMC_Expression(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Variable(scope, element, types::kExpression),
      still_(true),
      owner_(std::make_unique<CMC_Behaviour>(scope)) {
    operands_.push_back(element->getPropertyValue("OPERAND1"));
    CXString second = element->getPropertyValue("OPERAND2"), sign = element->getPropertyValue("OPERATOR");
    if (int code = resolveOp(sign); code != op::kNone) {
        operators_.push_back(code);
        operands_.push_back(second);
    } else if (sign.IsString() || second.IsString()) {
        complain("the operator \"" + std::string(sign.view()) +
                 "\" is none; the value is the first operand's");
    }
    parse(nullptr);
}

CMC_Expression::~CMC_Expression() { keep(nullptr); }

int CMC_Expression::resolveOp(const CXString & text) {
    if (text.getLength() == 1) return codeOf(text.GetAt(0));
    for (std::size_t i = 0; i < std::size(kOperatorWords); i++)
        if (text == kOperatorWords[i]) return static_cast<int>(i) + 1;
    return op::kNone;
}

void CMC_Expression::complain(std::string_view what) const {
    if (still_)
        notes::add(notes::Kind::other, scene_ ? scene_->getName().view() : "", name_.view(), what);
    else
        notes::add(notes::Kind::other, what);
}

// Operands and operators by turns. What stands in brackets belongs to the operand; nothing else protects a
// sign, quotes don't either.
void CMC_Expression::cut(std::string_view text) {
    std::size_t start = 0;
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text[i] == '[') depth++;
        if (text[i] == ']') depth--;
        int code = depth == 0 ? codeOf(text[i]) : op::kNone;
        if (code == op::kNone) continue;
        operands_.emplace_back(text.substr(start, i - start));
        operators_.push_back(code);
        start = i + 1;
    }
    operands_.emplace_back(text.substr(start));
    if (depth != 0) complain("a bracket isn't closed, or closed too often");
}

void CMC_Expression::init() {
    if (evaluatingAt_ < 0) parse(nullptr); // else the operands run
}

void CMC_Expression::parse(Statements * statements) {
    entries_.clear();
    bool missing = false;
    for (std::size_t i = 0; i < operands_.size(); i++) {
        bool isEmpty = !operands_[i].IsString();
        bool isNegative = i == 0 && !operators_.empty() && operators_[0] == op::kSub;
        missing = missing || (isEmpty && !isNegative);
        entries_.push_back(
            isEmpty ? nullptr
                    : std::make_unique<CMC_Behaviour_Entry>(owner_.get(), operands_[i], statements));
    }
    if (missing) complain("an operand is missing, so the bracket has no value");
}

CMC_Object * CMC_Expression::run(std::size_t operand) {
    CMC_Behaviour_Entry * entry = entries_[operand].get();
    return entry ? entry->run(this, nullptr) : nullptr;
}

CMC_Variable * CMC_Expression::evaluate() {
    // Behaviours may come back here through a signal or a call; without one in between an expression that
    // names itself would never end.
    int running = CMC_Behaviour::runningNo();
    if (evaluatingAt_ == running) {
        notes::add(notes::Kind::tooDeep, std::string(name_.view()) + " asks for its own value");
        return nullptr;
    }
    int outer = std::exchange(evaluatingAt_, running);
    CMC_Variable * result = operators_.empty() ? single() : combined();
    evaluatingAt_ = outer;
    return result;
}

// A lone operand: a named value stands for itself.
CMC_Variable * CMC_Expression::single() {
    CMC_Variable * value = valueOf(run(0));
    return control::isSignal(value) ? CMC_VariableFactory::copyVariable(value) : value;
}

CMC_Variable * CMC_Expression::combined() {
    CMC_Object * first = run(0);
    CMC_Variable * left = nullptr; // ours to flush
    int whole = 0;                 // an INTEGER in place of left, which needs no pool
    bool isWhole = false;
    bool isNull = false;
    for (std::size_t i = 0; i < operators_.size(); i++) {
        CMC_Object * second = run(i + 1);
        // The first operand counts as it is behind the second's run, a bracket in its place as well.
        if (i == 0) left = valueOf(first);
        CMC_Variable * right = valueOf(second);
        if (i == 0 && !entries_[0] && operators_[0] == op::kSub && right) {
            left = zeroLike(right);
            if (!left) complain("a leading minus needs a number");
        }
        isNull = isNull || !right || (!left && !isWhole);
        if (isNull) {
            CMC_Object::flush(left);
            left = nullptr;
        } else if (isWhole || left->getType() == types::kInteger) {
            if (!isWhole) whole = static_cast<CMC_Integer *>(left)->getValue();
            whole = CMC_Integer::calculated(whole, right->toInteger(), operators_[i]);
            isWhole = true;
            CMC_Object::flush(left);
            left = nullptr;
        } else {
            CMC_Variable * next = left->calculate(right, operators_[i]);
            CMC_Object::flush(left);
            left = next;
        }
        CMC_Object::flush(right);
    }
    if (isNull) return nullptr;
    return isWhole ? CMC_VariableFactory::integer(whole) : left;
}

// One value is kept at a time: a run inside this one may have kept another.
void CMC_Expression::keep(CMC_Variable * value) {
    if (clearings_ == CMC_VariableFactory::clearings()) CMC_Object::flush(value_); // else it is another's
    clearings_ = CMC_VariableFactory::clearings();
    bool isPooled = value && value->getId() >= 0;
    value_ = isPooled ? value : nullptr;
    named_ = life::Handle(isPooled ? nullptr : value);
}

void CMC_Expression::calculate() {
    life::Guard guard;
    keep(nullptr);
    keep(evaluate());
}

CMC_Variable * CMC_Expression::getValue() {
    return value_ ? value_ : static_cast<CMC_Variable *>(named_.get());
}

template <class Use, class Result>
Result CMC_Expression::with(Use && use, Result missing) {
    life::Guard guard;
    CMC_Variable * value = evaluate();
    if (!value) return missing;
    Result result = use(*value);
    CMC_Object::flush(value);
    return result;
}

int CMC_Expression::asInteger() {
    return with([](CMC_Variable & value) { return value.asInteger(); }, 0);
}

double CMC_Expression::asDouble() {
    return with([](CMC_Variable & value) { return value.asDouble(); }, 0.0);
}

bool CMC_Expression::asBool() {
    return with([](CMC_Variable & value) { return value.asBool(); }, false);
}

CXString CMC_Expression::asString() {
    return with([](CMC_Variable & value) { return value.asString(); }, CXString());
}

bool CMC_Expression::equals(CMC_Variable * other) {
    return with([&](CMC_Variable & value) { return other && value.equals(other); }, false);
}

int CMC_Expression::compare(CMC_Variable * other) {
    return with([&](CMC_Variable & value) { return other ? value.compare(other) : 1; }, 1);
}

CMC_Variable * CMC_Expression::convert(int type) {
    if (type == types::kExpression) return this;
    life::Guard guard;
    CMC_Variable * value = evaluate();
    return value ? value->convert(type) : nullptr;
}

CMC_Variable * CMC_Expression::calculate(CMC_Variable * right, int op) {
    CMC_Variable * none = nullptr;
    return with([&](CMC_Variable & value) { return right ? value.calculate(right, op) : nullptr; }, none);
}

CMC_Object * CMC_Expression::clone() {
    CMC_Object * none = nullptr;
    return with([](CMC_Variable & value) { return static_cast<CMC_Object *>(value.clone()); }, none);
}

void CMC_Expression::set(CMC_Variable * source) {
    with([&](CMC_Variable & value) { return value.set(source), true; }, false);
}

void CMC_Expression::clear() {
    with([](CMC_Variable & value) { return value.clear(), true; }, false);
}

void CMC_Expression::swap(CMC_Variable * a, CMC_Variable * b) {
    with([&](CMC_Variable & value) { return value.swap(a, b), true; }, false);
}

void CMC_Expression::inc() {
    with([](CMC_Variable & value) { return value.inc(), true; }, false);
}

void CMC_Expression::dec() {
    with([](CMC_Variable & value) { return value.dec(), true; }, false);
}

void CMC_Expression::setDefault(CMC_Variable * source) {
    with([&](CMC_Variable & value) { return value.setDefault(source), true; }, false);
}

void CMC_Expression::resetINI() {
    with([](CMC_Variable & value) { return value.resetINI(), true; }, false);
}

void CMC_Expression::fromString(const CXString & text) {
    with([&](CMC_Variable & value) { return value.fromString(text), true; }, false);
}

void CMC_Expression::copy(CMC_Variable * source) {
    with([&](CMC_Variable & value) { return value.copy(source), true; }, false);
}

bool CMC_Expression::netrestore(const void * buffer, int size) {
    return with([&](CMC_Variable & value) { return value.netrestore(buffer, size); }, false);
}

int CMC_Expression::getBufferLen() {
    calculate();
    CMC_Variable * value = getValue();
    return value ? value->getBufferLen() : 0;
}

void CMC_Expression::netstore(void * buffer) {
    if (CMC_Variable * value = getValue()) value->netstore(buffer);
}
