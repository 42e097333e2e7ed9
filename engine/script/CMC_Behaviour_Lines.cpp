// The second interpreter: comparison texts of IF and WHILE are walked at each test, by the same marks as
// statements but without keeping what was found.

#include "core/Text.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_Behaviour_Entry.h"
#include "script/CMC_Expression.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_Runner.h"
#include "script/CMC_RunnerFactory.h"
#include "script/Notes.h"

#include <memory>

namespace {

using View = std::string_view;

constexpr int kLowBits = 0x7F; // of the byte that stands for a number in the forms with #

View cutAround(View text, char open, char close) {
    text = text::trimBlanks(text);
    if (text.starts_with(open)) text.remove_prefix(1);
    if (text.ends_with(close)) text.remove_suffix(1);
    return text::trimBlanks(text);
}

} // namespace

CMC_Object * CMC_Behaviour::resolveParameter(CMC_ObjectsContainer * scope, CMC_Object * self,
                                             const CXString & text, CXArray * args) {
    CXString bare(text::trimBlanks(text.view()));
    char first = bare.GetAt(0);
    if (first == '[') {
        auto * expression = new CMC_Expression(scope, CXString(cutAround(bare.view(), '[', ']')));
        addToTrash(expression);
        return expression;
    }
    if (bare.view().starts_with("CONV")) return runLine(scope, self, "@" + bare, args);
    if (bare.Find('^', 0) >= 0 && first != '"') return runLine(scope, self, bare, args);
    if (first == '-' || (first >= '0' && first <= '9')) return CMC_Variable::resolve(bare.view());
    if (int bar = bare.Find('|', 0); bar >= 0 && first != '"') {
        CMC_Object * structure = scope->getObject(bare.Left(bar));
        return structure ? structure->getField(bare.Right(bar + 1)) : nullptr;
    }
    if (CMC_Variable * variable = scope->getVariable(bare)) return variable;
    return CMC_Variable::resolve(bare.view());
}

CXVector * CMC_Behaviour::resolveParameters(CMC_ObjectsContainer * scope, CMC_Object * self,
                                            const CXString & text, CXArray * args) {
    auto * values = new CXVector(101, 0.75F);
    View rest = text.view();
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= rest.size(); i++) {
        char c = i < rest.size() ? rest[i] : ',';
        if (c == '(') depth++;
        if (c == ')') depth--;
        if (i < rest.size() && (c != ',' || depth != 0)) continue;
        if (i > start)
            values->add(resolveParameter(scope, self, CXString(rest.substr(start, i - start)), args));
        start = i + 1;
    }
    return values;
}

CMC_Object * CMC_Behaviour::resolveObject(CMC_ObjectsContainer * scope, CMC_Object * self,
                                          const CXString & text) {
    CXString name(text::trimBlanks(text.view()));
    if (name == "THIS") return self;
    if (name.view().starts_with("#n") && name.getLength() > 2) {
        int place = name.GetAt(2) & kLowBits;
        return place < scope->getElementsNo() ? scope->getObject(place) : nullptr;
    }
    return scope->getObject(name);
}

CMC_Object * CMC_Behaviour::runLine(CMC_ObjectsContainer * scope, CMC_Object * self, const CXString & text,
                                    CXArray * args) {
    // A text of its own counts as an outermost run.
    if (depth == 0 && textsNo == 0) startCounting();
    struct Inside {
        Inside() { textsNo++; }
        ~Inside() { textsNo--; }
    } inside;
    View line = text::trimBlanks(text.view());
    std::size_t open = line.find('(');
    View head = line.substr(0, open);
    View params = open == View::npos ? View() : cutAround(line.substr(open), '(', ')');

    CMC_Object * target = nullptr;
    CMC_Runner * runner = nullptr;
    View method;
    if (head.starts_with('@')) {
        runner = CMC_RunnerFactory::getRunner(types::kNone);
        method = head.substr(1);
    } else {
        std::size_t caret = head.find('^');
        if (caret == View::npos) return nullptr;
        method = head.substr(caret + 1);
        bool indirect = head.starts_with('*');
        target =
            resolveObject(scope, self, CXString(head.substr(indirect ? 1 : 0, caret - (indirect ? 1 : 0))));
        if (target && indirect) target = scope->getObject(CMC_Behaviour_Entry::getStringValue(target));
        if (!target) {
            notes::add(notes::Kind::unknownObject, head.substr(0, caret));
            return nullptr;
        }
        runner = CMC_RunnerFactory::runnerOf(target);
    }
    if (!runner) return nullptr;

    CMC_Behaviour holder(scope); // whom a statement runs in
    if (!target) target = &holder;
    std::unique_ptr<CXVector> values(resolveParameters(scope, self, CXString(params), args));
    CMC_Object * result = method.starts_with('#') && method.size() > 1
                              ? runner->run(method[1] & kLowBits, target, scope, values.get())
                              : runner->run(CXString(method), target, scope, values.get());
    for (CXObject * each : *values)
        if (each != result) flush(static_cast<CMC_Object *>(each));
    return result;
}
