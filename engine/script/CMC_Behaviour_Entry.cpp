#include "script/CMC_Behaviour_Entry.h"

#include "core/Text.h"
#include "script/CMC_BlockName.h"
#include "script/CMC_Expression.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_Runner.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/Control.h"
#include "script/Names.h"
#include "script/Notes.h"

#include <algorithm>
#include <utility>

namespace {

using View = std::string_view;
constexpr std::size_t kNone = View::npos;

int textDepth = 0;

// How deep texts stand inside each other while they are parsed.
class Deeper {
public:
    Deeper() { textDepth++; }
    ~Deeper() { textDepth--; }
};

bool has(View text, char c) { return text.find(c) != kNone; }

// Without the first and the last byte.
View inside(View text) { return text.size() < 2 ? View() : text.substr(1, text.size() - 2); }

// The code of a block such as {...} or "{...}", or nothing when the text is none.
bool isBlock(View text) {
    std::size_t open = text.starts_with('"') ? 1 : 0;
    return open < text.size() && text[open] == '{';
}

View blockCode(View text) {
    bool quoted = text.starts_with('"');
    text.remove_prefix(quoted ? 2 : 1);
    if (quoted && text.ends_with('"')) text.remove_suffix(1);
    if (text.ends_with('}')) text.remove_suffix(1);
    return text;
}

// A block made into a behaviour of the scope.
CMC_Behaviour * makeBlock(CMC_ObjectsContainer * scope, const char * prefix, View code) {
    static int counter = 0;
    CXString name(prefix);
    name += counter++;
    auto * block = new CMC_Behaviour(scope, name, CXString(code));
    block->init();
    scope->addObject(block);
    return block;
}

void dropBlock(CMC_Object * block) {
    if (!block) return;
    if (block->getScene()) block->getScene()->removeObject(block);
    life::bury(block);
}

constexpr const char * kStaticBlock = "temp";
constexpr const char * kRunTimeBlock = "xtemp";

} // namespace

CMC_Behaviour_Entry::Parameter::Parameter() = default;
CMC_Behaviour_Entry::Parameter::~Parameter() = default;
CMC_Behaviour_Entry::Parameter::Parameter(Parameter &&) noexcept = default;

CMC_Behaviour_Entry::CMC_Behaviour_Entry(CMC_Behaviour * behaviour, const CXString & text,
                                         Statements * statements)
    : CMC_Object("code", types::kEntry), behaviour_(behaviour), line_(text) {
    Deeper deeper;
    if (textDepth > kDeepestText) {
        notes::add(notes::Kind::tooDeep, "the text stands " + std::to_string(kDeepestText) + " levels deep");
        form_ = Form::nothing;
        return;
    }
    parse(statements);
}

CMC_Behaviour_Entry::~CMC_Behaviour_Entry() {
    if (!ownsTemp_) return;
    for (const life::Handle & block : blocks_) dropBlock(block.get());
}

void CMC_Behaviour_Entry::releaseTempBeh(bool on) {
    ownsTemp_ = on;
    for (Parameter & each : parameters_)
        if (each.entry) each.entry->releaseTempBeh(on);
}

// ---------------------------------------------------------------------------------------------- parsing

void CMC_Behaviour_Entry::getCodeLines(CMC_Behaviour * behaviour, const CXString & text,
                                       Statements & statements) {
    std::string area;
    int depth = 0;
    bool tooLong = false;
    auto finish = [&] {
        int number = static_cast<int>(statements.entries.size()) + 1;
        CXString line((View(area)));
        notes::Place place(behaviour, number, line);
        if (tooLong)
            notes::add(notes::Kind::textTooLong,
                       "cut at " + std::to_string(CMC_Behaviour::kLimit - 1) + " bytes");
        statements.entries.push_back(std::make_unique<CMC_Behaviour_Entry>(behaviour, line, &statements));
        area.clear();
        tooLong = false;
    };
    for (char c : text.view()) {
        if (c == ' ') continue;
        if (c == '(') depth++;
        if (c == ')') depth--;
        if (c == ';' && depth == 0)
            finish();
        else if (area.size() < CMC_Behaviour::kLimit - 1)
            area += c;
        else
            tooLong = true;
    }
    if (area.empty()) return;
    CXString rest((View(area)));
    notes::Place place(behaviour, static_cast<int>(statements.entries.size()) + 1, rest);
    notes::add(notes::Kind::missingSemicolon, depth > 0
                                                  ? "a bracket isn't closed: the rest of the code doesn't run"
                                                  : "the statement doesn't run");
}

void CMC_Behaviour_Entry::parse(Statements * statements) {
    View text = line_.view();
    if (text.ends_with(';')) text.remove_suffix(1);
    std::size_t open = text.find('(');
    char first = text.empty() ? '\0' : text[0];

    if (first == '@') {
        form_ = Form::builtIn;
        runner_ = CMC_RunnerFactory::getRunner(types::kNone);
        if (cutMethod(text, 1, open)) methodId_ = runner_->resolveMethod(methodName_);
        row_ = runner_->rowOf(methodId_);
    } else if (first == '*') {
        form_ = Form::indirect;
        open = parseIndirect(text, statements);
    } else if (text.starts_with("THIS")) {
        form_ = Form::self;
        cutMethod(text, 5, open);
    } else if (first == '[') {
        form_ = Form::expression;
        if (has(inside(text), '$')) {
            plainText_ = CXString(text);
            plainHasParam_ = true;
        } else {
            expression_ = std::make_unique<CMC_Expression>(scope(), CXString(inside(text)), statements);
        }
        return;
    } else if (has(text, '^') && first != '"') {
        form_ = Form::call;
        parseCall(text, statements);
    } else {
        form_ = Form::plain;
        plainText_ = CXString(text);
        plainHasParam_ = has(text, '$');
        plainHasField_ = has(text, '|');
        CMC_Object * found = lookUp(text, statements);
        if (found && !found->isTemporary()) object_ = life::Handle(found);
        return;
    }
    if (form_ == Form::nothing) return;
    View params = text.substr(open + 1);
    if (!params.ends_with(')'))
        notes::add(notes::Kind::missingParenthesis, "the last byte of the parameters is taken for it");
    if (!params.empty()) params.remove_suffix(1);
    parseParameters(params, statements);
}

// The method's name, from a place up to the parenthesis. Without one the statement does nothing.
bool CMC_Behaviour_Entry::cutMethod(View text, std::size_t from, std::size_t open) {
    if (open == kNone || from > open) {
        form_ = Form::nothing;
        notes::add(notes::Kind::noCall, "a call needs parentheses");
        return false;
    }
    methodName_ = CXString(text.substr(from, open - from));
    return true;
}

// *NAME^METHOD(...) or *[EXPRESSION]^METHOD(...). The place of the parenthesis.
std::size_t CMC_Behaviour_Entry::parseIndirect(View text, Statements * statements) {
    std::size_t bracket = text.find(']');
    std::size_t behind = bracket == kNone ? 0 : bracket + 1;
    std::size_t open = text.find('('), caret;
    if (open == kNone || behind < open) {
        caret = text.find('^', behind);
        open = caret == kNone ? kNone : text.find('(', caret);
    } else {
        caret = text.find('^');
    }
    if (caret == kNone || !cutMethod(text, caret + 1, open)) {
        form_ = Form::nothing;
        return 0;
    }
    objectName_ = CXString(text.substr(1, caret - 1));
    if (objectName_.GetAt(0) == '[')
        expression_ =
            std::make_unique<CMC_Expression>(scope(), CXString(inside(objectName_.view())), statements);
    else
        indirectTarget_ = life::Handle(lookUp(objectName_.view(), statements));
    return open;
}

void CMC_Behaviour_Entry::parseCall(View text, Statements * statements) {
    std::size_t caret = text.find('^');
    objectName_ = CXString(text.substr(0, caret));
    if (!cutMethod(text, caret + 1, text.find('('))) return;
    nameHasParam_ = has(objectName_.view(), '$');
    nameHasField_ = has(objectName_.view(), '|');
    if (nameHasParam_) return;
    CMC_Object * found = lookUpCall(objectName_.view(), statements);
    if (!found || found->isTemporary()) return;
    object_ = life::Handle(found);
    runner_ = CMC_RunnerFactory::runnerOf(found);
    if (!runner_) return;
    methodId_ = runner_->resolveMethod(methodName_);
    row_ = runner_->rowOf(methodId_);
}

CMC_Object * CMC_Behaviour_Entry::lookUp(View name, Statements * statements) {
    CMC_Object * found = scope() ? scope()->getObject(name) : nullptr;
    if (statements)
        statements->sawName(names::record(name), found && !found->isTemporary() ? found : nullptr);
    return found;
}

// A name with a vertical bar means a field of a structure.
CMC_Object * CMC_Behaviour_Entry::lookUpCall(View name, Statements * statements) {
    std::size_t bar = name.find('|');
    CMC_Object * found = lookUp(name.substr(0, bar), statements);
    return found && bar != kNone ? found->getField(CXString(name.substr(bar + 1))) : found;
}

void CMC_Behaviour_Entry::parseParameters(View text, Statements * statements) {
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); i++) {
        char c = i < text.size() ? text[i] : ',';
        if (c == '(') depth++;
        if (c == ')') depth--;
        if (i < text.size() && (c != ',' || depth != 0)) continue;
        if (i > start) parseParameter(text.substr(start, i - start), statements);
        start = i + 1;
    }
}

void CMC_Behaviour_Entry::parseParameter(View text, Statements * statements) {
    Parameter & made = parameters_.emplace_back();
    CXObject * value = nullptr;
    if (text[0] == '[' && !has(text, '$')) {
        made.owned = std::make_unique<CMC_Expression>(scope(), CXString(inside(text)), statements);
        value = made.owned.get();
    } else if ((text[0] == '@' || has(text, '$') || has(text, '^')) && isBlock(text)) {
        CMC_Behaviour * block = makeBlock(scope(), "temp_", blockCode(text));
        blocks_.emplace_back(block);
        made.owned = std::make_unique<CMC_BlockName>(block, kStaticBlock);
        made.kind = Parameter::Kind::block;
        value = made.owned.get();
        made.takesArgs = has(text, '$');
        if (statements && block->getLines()) statements->sawNamesOf(*block->getLines());
    } else if (text[0] == '@' || has(text, '$') || has(text, '^') || text[0] != '&') {
        made.entry = std::make_unique<CMC_Behaviour_Entry>(behaviour_, CXString(text), statements);
        made.kind = has(text, '$') ? Parameter::Kind::filled : Parameter::Kind::computed;
    } else {
        View name = text.substr(1);
        CMC_Object * found = lookUp(name, statements);
        if (found && types::isValue(found->getType())) {
            made.kind = Parameter::Kind::bound;
            made.object = life::Handle(found);
            made.name = CXString(name);
            value = found;
        } else {
            // A literal is kept as a value of its own: a pool would take it back.
            CMC_Variable * literal = CMC_Variable::resolve(name);
            made.owned.reset(literal->clone());
            CMC_Object::flush(literal);
            value = made.owned.get();
        }
    }
    paramValues_.add(value);
}

// ---------------------------------------------------------------------------------------------- running

CXString CMC_Behaviour_Entry::getStringValue(CMC_Object * variable) {
    return variable ? variable->toString() : CXString();
}

CXString CMC_Behaviour_Entry::fillParams(const CXString & text, CXArray * args) {
    View view = text.view();
    if (!has(view, '$')) return text;
    std::string filled;
    for (std::size_t i = 0; i < view.size(); i++) {
        int index = view[i] == '$' && i + 1 < view.size() ? view[i + 1] - '1' : -1;
        if (args && index >= 0 && index < args->size) {
            filled += args->stringAt(index)->view();
            i++;
        } else {
            filled += view[i];
        }
        if (filled.size() >= CMC_Behaviour::kLimit) {
            notes::add(notes::Kind::textTooLong, "with its arguments it is cut at " +
                                                     std::to_string(CMC_Behaviour::kLimit - 1) + " bytes");
            filled.resize(CMC_Behaviour::kLimit - 1);
            break;
        }
    }
    return CXString(View(filled));
}

// Most statements call a method that is known, on a target that is there, with values that stand. What else
// there is has functions of its own, so that this one needs no room for it.
CMC_Object * CMC_Behaviour_Entry::run(CMC_Object * self, CXArray * args) {
    if (row_ && ready(args))
        if (CMC_Object * object = target()) return runner_->run(*row_, object, scope(), &paramValues_);
    return runOther(self, args);
}

// Whether the list of values holds what it would be filled with now.
inline bool CMC_Behaviour_Entry::ready(const CXArray * args) const {
    using Kind = Parameter::Kind;
    for (const Parameter & each : parameters_) {
        bool stands = each.kind == Kind::standing
                          ? each.version == each.record->now() && each.scope == scope()
                      : each.kind == Kind::bound ? each.object.get() != nullptr
                      : each.kind == Kind::block ? !args || (!each.takesArgs && blockStands(each))
                                                 : each.kind == Kind::fixed;
        if (!stands) return false;
    }
    return true;
}

// A block without a $ that arguments are given to: they only parse it anew.
bool CMC_Behaviour_Entry::blockStands(const Parameter & parameter) {
    const CMC_Behaviour * block = static_cast<CMC_BlockName *>(parameter.owned.get())->block();
    return !block || block->linesStand();
}

CMC_Object * CMC_Behaviour_Entry::runOther(CMC_Object * self, CXArray * args) {
    switch (form_) {
    case Form::nothing: return nullptr;
    case Form::plain: return runPlain(args);
    case Form::expression: return expression_ ? expression_.get() : substituted(args);
    default: break;
    }
    if (ready(args)) return call(self, args, paramValues_);
    if (running_) return runInside(self, args);
    running_ = true;
    fill(paramValues_, self, args);
    CMC_Object * result = call(self, args, paramValues_);
    release(paramValues_);
    running_ = false;
    return result;
}

// The same statement may run inside itself: the inner run has a list of its own.
CMC_Object * CMC_Behaviour_Entry::runInside(CMC_Object * self, CXArray * args) {
    CXVector params(std::max(paramValues_.size * 2, 4), 0.75F);
    for (const Parameter & each : parameters_) params.add(each.owned.get());
    fill(params, self, args);
    CMC_Object * result = call(self, args, params);
    release(params);
    return result;
}

// Of a statement with a row: null when it is gone.
inline CMC_Object * CMC_Behaviour_Entry::target() const {
    return form_ == Form::builtIn ? behaviour_ : object_.get();
}

inline CMC_Object * CMC_Behaviour_Entry::runPlain(CXArray * args) {
    if (CMC_Object * bound = object_.get()) return bound;
    bool stands = meaning_.record && meaning_.version == meaning_.record->now() && meaning_.scope == scope();
    if (!stands) return lookUpPlain(args);
    if (meaning_.object) return meaning_.object;
    return literal_.type == types::kInteger ? CMC_VariableFactory::integer(literal_.integer) : literal();
}

CMC_Object * CMC_Behaviour_Entry::lookUpPlain(CXArray * args) {
    if (plainHasParam_) return substituted(args);
    if (plainHasField_) {
        if (CMC_Object * field = lookUpCall(plainText_.view(), nullptr)) return field;
        return literal();
    }
    meaning_.record = names::record(plainText_.view());
    meaning_.version = meaning_.record->now();
    meaning_.scope = scope();
    meaning_.object = meaning_.scope ? meaning_.scope->getVariable(plainText_.view()) : nullptr;
    return meaning_.object ? meaning_.object : literal();
}

// The value of a text with arguments in it.
CMC_Object * CMC_Behaviour_Entry::substituted(CXArray * args) {
    CXString text = fillParams(plainText_, args);
    if (text.GetAt(0) == '[') {
        CMC_Expression expression(scope(), CXString(inside(text.view())));
        expression.calculate();
        return CMC_VariableFactory::copyVariable(expression.getValue());
    }
    if (scope())
        if (CMC_Variable * variable = scope()->getVariable(text)) return variable;
    return CMC_Variable::resolve(text.view());
}

CMC_Variable * CMC_Behaviour_Entry::literal() {
    if (literal_.type == 0) {
        // Read once by the rules of literals; the text then stands in this line.
        CMC_Variable * value = CMC_Variable::resolve(line_.view());
        literal_.type = value->getType();
        literal_.integer = value->asInteger();
        literal_.real = value->asDouble();
        literal_.boolean = value->asBool();
        View text = line_.view();
        if (text.starts_with('"')) {
            text.remove_prefix(1);
            if (text.ends_with('"')) text.remove_suffix(1);
        }
        literal_.text = text;
        CMC_Object::flush(value);
    }
    switch (literal_.type) {
    case types::kInteger: return CMC_VariableFactory::integer(literal_.integer);
    case types::kDouble: return CMC_VariableFactory::real(literal_.real);
    case types::kBool: return CMC_VariableFactory::boolean(literal_.boolean);
    default: return CMC_VariableFactory::string(literal_.text);
    }
}

void CMC_Behaviour_Entry::fill(CXVector & params, CMC_Object * self, CXArray * args) {
    CXObject ** value = params.begin();
    for (Parameter & each : parameters_) {
        CMC_Behaviour_Entry * entry = each.kind == Parameter::Kind::filled ? nullptr : each.entry.get();
        if (!entry)
            *value++ = compute(each, self, args);
        else
            *value++ = entry->form_ == Form::plain ? entry->runPlain(args) : entry->run(self, args);
    }
}

CXObject * CMC_Behaviour_Entry::compute(Parameter & parameter, CMC_Object * self, CXArray * args) {
    switch (parameter.kind) {
    case Parameter::Kind::filled: return evaluate(fillParams(parameter.entry->line_, args), self, args);
    case Parameter::Kind::bound:
        if (CMC_Object * variable = parameter.object.get()) return variable;
        return scope() ? scope()->getVariable(parameter.name) : nullptr; // the first one is gone
    case Parameter::Kind::block:
        if (CMC_Behaviour * block =
                args ? static_cast<CMC_BlockName *>(parameter.owned.get())->block() : nullptr)
            block->setParams(args);
        break;
    default: break;
    }
    return parameter.owned.get();
}

// A parameter's text with the arguments in it. Arguments that hold a $ themselves can make texts without end,
// and many of them.
CMC_Object * CMC_Behaviour_Entry::evaluate(const CXString & text, CMC_Object * self, CXArray * args) {
    // Each run of a behaviour counts for itself: those inside each other have a bound of their own.
    struct Filling {
        int running, depth, made;
    };
    static Filling now{};
    struct Level {
        Level() : outer(now) {
            if (now.depth == 0 || now.running != CMC_Behaviour::runningNo())
                now = {CMC_Behaviour::runningNo(), 0, 0};
            now.depth++;
        }
        ~Level() {
            if (outer.depth == 0 || outer.running != now.running)
                now = outer;
            else
                now.depth--;
        }
        const Filling outer;
    } level;
    if (now.depth > kDeepestArguments || ++now.made > kMostArguments) {
        notes::add(notes::Kind::tooDeep, "arguments that name arguments again");
        return nullptr;
    }
    View view = text.view();
    if (view.starts_with('[')) return new CMC_Expression(scope(), CXString(inside(view)));
    if (!view.starts_with('@') && !has(view, '$') && !has(view, '^')) {
        if (scope())
            if (CMC_Variable * variable = scope()->getVariable(text)) return variable;
        return CMC_Variable::resolve(view);
    }
    if (isBlock(view)) return new CMC_BlockName(makeBlock(scope(), "xtemp_", blockCode(view)), kRunTimeBlock);
    CMC_Behaviour_Entry entry(behaviour_, text);
    CMC_Object * value = entry.run(self, args);
    // What belongs to the entry goes with it.
    if (value && value == entry.expression_.get()) {
        auto * expression = static_cast<CMC_Expression *>(value);
        expression->calculate();
        return CMC_VariableFactory::copyVariable(expression->getValue());
    }
    return value;
}

void CMC_Behaviour_Entry::release(CXVector & params) {
    CXObject ** place = params.begin();
    for (Parameter & each : parameters_) {
        CXObject *& slot = *place++;
        if (!each.entry) continue;
        auto * value = static_cast<CMC_Object *>(std::exchange(slot, nullptr));
        if (value && types::isValue(value->getType()) && static_cast<CMC_Variable *>(value)->getId() >= 0)
            static_cast<CMC_Variable *>(value)->setTaken(false);
        else if (value)
            releaseOther(value, each);
        if (each.entry->form_ == Form::plain && each.kind != Parameter::Kind::filled) slot = settle(each);
    }
}

// A bare word that gave a named object, or is a literal: that is its value until its name means another. Null
// when it has to be computed again.
CXObject * CMC_Behaviour_Entry::settle(Parameter & parameter) {
    const CMC_Behaviour_Entry & word = *parameter.entry;
    if (CMC_Object * object = word.object_.get()) {
        parameter.kind = Parameter::Kind::bound;
        parameter.object = word.object_;
        return object;
    }
    parameter.kind = Parameter::Kind::computed;
    const Meaning & meaning = word.meaning_;
    if (!meaning.record || meaning.version != meaning.record->now() || meaning.scope != scope())
        return nullptr;
    parameter.kind = Parameter::Kind::standing;
    parameter.record = meaning.record;
    parameter.version = meaning.version;
    parameter.scope = meaning.scope;
    if (meaning.object) return meaning.object;
    if (!parameter.owned) {
        CMC_Variable * literal = parameter.entry->literal();
        parameter.owned.reset(literal->clone());
        CMC_Object::flush(literal);
    }
    return parameter.owned.get();
}

void CMC_Behaviour_Entry::releaseOther(CMC_Object * value, const Parameter & parameter) {
    if (value->getType() == types::kExpression) {
        bool isOurs =
            !static_cast<CMC_Expression *>(value)->isStill() && value != parameter.entry->expression_.get();
        if (isOurs) delete value;
    } else if (CMC_BlockName * name = CMC_BlockName::of(value); name && name->getName() == kRunTimeBlock) {
        dropBlock(name->block());
        delete name;
    }
}

CMC_Object * CMC_Behaviour_Entry::callByName(CMC_Object * object, CMC_Runner * runner,
                                             const CXString & method, CXVector & params) {
    return object && runner ? runner->run(method, object, scope(), &params) : nullptr;
}

CMC_Object * CMC_Behaviour_Entry::call(CMC_Object * self, CXArray * args, CXVector & params) {
    if (row_)
        if (CMC_Object * object = target()) return runner_->run(*row_, object, scope(), &params);
    if (form_ == Form::call && !nameHasParam_ && !nameHasField_ && !object_.get()) return callLate(params);
    return callFound(self, args, params);
}

// A call whose target wasn't there when the text was parsed, a local variable mostly.
CMC_Object * CMC_Behaviour_Entry::callLate(CXVector & params) {
    if (!meaning_.record) meaning_.record = names::record(objectName_.view());
    std::uint64_t version = meaning_.record->now();
    CMC_ObjectsContainer * where = scope();
    if (version != meaning_.version || meaning_.scope != where) {
        meaning_.version = version;
        meaning_.scope = where;
        meaning_.object = where ? where->getObject(*meaning_.record) : nullptr;
        CMC_Runner * runner = meaning_.object ? CMC_RunnerFactory::runnerOf(meaning_.object) : nullptr;
        if (runner && runner != meaning_.runner)
            meaning_.row = runner->rowOf(runner->resolveMethod(methodName_));
        meaning_.runner = runner;
    }
    if (!meaning_.object) {
        notes::add(notes::Kind::unknownObject, objectName_.view());
        return nullptr;
    }
    if (meaning_.row && meaning_.runner)
        return meaning_.runner->run(*meaning_.row, meaning_.object, where, &params);
    return callByName(meaning_.object, meaning_.runner, methodName_, params);
}

// A call whose target or method has to be found first.
CMC_Object * CMC_Behaviour_Entry::callFound(CMC_Object * self, CXArray * args, CXVector & params) {
    CMC_ObjectsContainer * where = scope();
    auto byName = [&](CMC_Object * object, CMC_Runner * runner, const CXString & method) {
        return callByName(object, runner, method, params);
    };
    auto missing = [&](const CXString & name) -> CMC_Object * {
        notes::add(notes::Kind::unknownObject, name.view());
        return nullptr;
    };

    switch (form_) {
    case Form::builtIn: return byName(behaviour_, runner_, methodName_);
    case Form::self: {
        CMC_Object * target = where && where->getType() == types::kClass ? where : self;
        return target ? byName(target, CMC_RunnerFactory::runnerOf(target), methodName_) : missing("THIS");
    }
    case Form::indirect: {
        CMC_Object * holder = expression_ ? expression_.get() : indirectTarget_.get();
        if (!holder && where) holder = where->getVariable(objectName_);
        CXString name = getStringValue(holder);
        CMC_Object * target = where && name.IsString() ? where->getObject(name) : nullptr;
        if (!target) return missing(name.IsString() ? name : objectName_);
        return byName(target,
                      target->getType() >= types::kFirstModuleType ? target->getRunner()
                                                                   : CMC_RunnerFactory::runnerOf(target),
                      methodName_);
    }
    case Form::call: break;
    default: return nullptr;
    }

    if (nameHasParam_) {
        CXString name = fillParams(objectName_, args);
        CMC_Object * target = lookUpCall(name.view(), nullptr);
        if (!target) return missing(name);
        return byName(target, CMC_RunnerFactory::runnerOf(target), fillParams(methodName_, args));
    }
    if (CMC_Object * bound = object_.get(); bound && runner_) return byName(bound, runner_, methodName_);
    CMC_Object * target = lookUpCall(objectName_.view(), nullptr);
    return target ? byName(target, CMC_RunnerFactory::runnerOf(target), methodName_) : missing(objectName_);
}
