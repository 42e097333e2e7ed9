// Expressions and comparisons. The first three lines are a text, another one and an operator.

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "platform/World.h"
#include "platform/dialogs/RecordingDialogs.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_ComplexCondition.h"
#include "script/CMC_Condition.h"
#include "script/CMC_Expression.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// The world of all inputs; each has a scope of its own.
struct Game {
    Game() {
        auto recording = std::make_unique<platform::RecordingDialogs>();
        dialogs = recording.get();
        world->dialogs = std::move(recording);
        window =
            std::make_unique<CWindow>(nullptr, &commandLine, &language, CXSize(800, 600), nullptr, "", true);
        CMC_VariableFactory::initialize();
        CMC_RunnerFactory::initialize();
    }
    ~Game() {
        CMC_RunnerFactory::done();
        CMC_VariableFactory::done();
    }
    std::unique_ptr<platform::World> world = platform::headless();
    platform::Installed installed{*world};
    platform::RecordingDialogs * dialogs;
    CCommandLine6 commandLine{""};
    CLanguageOSVer language;
    std::unique_ptr<CWindow> window;
};

std::string_view takeLine(std::string_view & text) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

// What a script may rightly spend hours or gigabytes on, and what reaches the machine's files.
bool isEndless(std::string_view text) {
    for (const char * word : {"LOOP", "FOR", "WHILE", "CLONE", "INSERTAT", "COPYFILE"})
        if (text.find(word) != std::string_view::npos) return true;
    return false;
}

template <class Type>
Type * add(CMC_ObjectsContainer & scope, const char * name, const CXString & first, const CXString & second,
           const CXString & sign) {
    CMElement element((CXString(name)));
    for (const char * key : {"OPERAND1", "CONDITION1"}) element.addProperty(key, first);
    for (const char * key : {"OPERAND2", "CONDITION2"}) element.addProperty(key, second);
    element.addProperty("OPERATOR", sign);
    auto * made = new Type(&scope, &element);
    scope.addObject(made);
    made->init();
    return made;
}

void play(Game & game, const CXString & first, const CXString & second, const CXString & sign) {
    CMC_ObjectsContainer scope(game.window.get(), nullptr, CXString("SCENE"), types::kScene);
    scope.addObject(new CMC_Integer(CXString("I")));
    scope.addObject(new CMC_Double(CXString("D")));
    scope.addObject(new CMC_Bool(CXString("B")));
    scope.addObject(new CMC_String(CXString("text"), CXString("S")));
    auto * behaviour = new CMC_Behaviour(&scope, "RISE", "{I^ADD([I+1]);}");
    scope.addObject(behaviour);
    behaviour->init();

    {
        CMC_Expression expression(&scope, first);
        expression.calculate();
        CMC_Variable * value = expression.getValue();
        require(!value || types::isValue(value->getType()));
        expression.asInteger();
        expression.compare(&expression);
    }
    CMC_Condition::valid(&scope, first);
    CMC_Condition::valid(&scope, first, second, sign);

    auto * expression = add<CMC_Expression>(scope, "E", first, second, sign);
    auto * condition = add<CMC_Condition>(scope, "C", first, second, sign);
    auto * complex = add<CMC_ComplexCondition>(scope, "CC", first, second, sign);
    auto isThere = [&](const char * name, CMC_Object * object) { return scope.getObject(name) == object; };
    if (isThere("E", expression)) expression->asString();
    if (isThere("C", condition)) condition->valid(true);
    if (isThere("CC", complex)) complex->valid(true);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    static Game game;
    std::string_view text(reinterpret_cast<const char *>(data), size);
    if (isEndless(text) || text.find('\0') != std::string_view::npos) return 0;
    CXString first(takeLine(text)), second(takeLine(text)), sign(takeLine(text));
    const int taken = CMC_VariableFactory::takenNo();
    play(game, first, second, sign);
    CMC_Behaviour::flushTrash();
    require(CMC_VariableFactory::takenNo() == taken);
    game.dialogs->texts.clear();
    return 0;
}
