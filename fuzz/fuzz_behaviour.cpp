// Code of behaviours. The first line holds the arguments, separated by commas; the rest is the code.

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "core/CXTimer.h"
#include "files/CLanguageOSVer.h"
#include "files/CTextFileReader.h"
#include "platform/World.h"
#include "platform/dialogs/RecordingDialogs.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr char kObjects[] = "OBJECT=I\nI:TYPE=INTEGER\nI:VALUE=3\nI:ONCHANGED=RISE\n"
                            "OBJECT=D\nD:TYPE=DOUBLE\nD:VALUE=1.5\n"
                            "OBJECT=B\nB:TYPE=BOOL\n"
                            "OBJECT=S\nS:TYPE=STRING\nS:VALUE=text\nS:ONCHANGED^text=RISE\n"
                            "OBJECT=A\nA:TYPE=ARRAY\n"
                            "OBJECT=M\nM:TYPE=MULTIARRAY\nM:DIMENSIONS=2\n"
                            "OBJECT=G\nG:TYPE=GROUP\n"
                            "OBJECT=Q\nQ:TYPE=FIFO\n"
                            "OBJECT=V\nV:TYPE=VECTOR\nV:SIZE=2\n"
                            "OBJECT=T\nT:TYPE=TIMER\nT:ELAPSE=20\nT:ENABLED=TRUE\nT:ONTICK={I^INC();}\n"
                            "OBJECT=C\nC:TYPE=CONDITION\nC:OPERAND1=I\nC:OPERATOR=GREATER\nC:OPERAND2=2\n"
                            "OBJECT=E\nE:TYPE=EXPRESSION\nE:OPERAND1=I\nE:OPERAND2=2\nE:OPERATOR=MUL\n"
                            "OBJECT=RISE\nRISE:TYPE=BEHAVIOUR\nRISE:CODE={D^ADD(1);}\n";

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
        CMC_Behaviour::bounds = {2000, 3, 12};
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

// What makes as many objects or values as it is told, and what reaches the machine's files.
bool isOutside(std::string_view text) {
    for (const char * word :
         {"CLONE", "INSERTAT", "COPYFILE", "SAVE", "LOAD", "EXPAND", "SETSIZE", "RESIZE", "CHANGEAT"})
        if (text.find(word) != std::string_view::npos) return true;
    return false;
}

void play(Game & game, std::string_view arguments, std::string_view code) {
    CMC_ObjectsContainer scope(game.window.get(), nullptr, CXString("SCENE"), types::kScene);
    scope.setScene(&scope);
    std::string objects(kObjects);
    CTextFileReader reader(game.window.get(), objects.data(), static_cast<int>(objects.size()));
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(game.window.get(), &reader));
    delete scope.resolveObjects(elements.get());
    for (int i = 0; i < scope.getElementsNo(); i++) scope.getObject(i)->init();

    auto * behaviour = new CMC_Behaviour(&scope, "CODE", CXString(code));
    scope.addObject(behaviour);
    behaviour->init();
    life::Handle alive(behaviour);
    std::unique_ptr<CXArray, void (*)(CXArray *)> args(CXString(arguments).toVector(","),
                                                       CXString::releaseToVector);
    CXArray * given = args->size > 0 ? args.get() : nullptr;
    // Twice: the second run finds what the first has kept, and has changed.
    for (int i = 0; i < 2; i++)
        if (alive.get()) behaviour->run(scope.getObject("I"), given, true);
    // Timers whose code sets more timers, a thousand deep, would take for ever, as their author says.
    constexpr int kMostObjects = 300;
    for (int i = 0; i < 3 && scope.getElementsNo() < kMostObjects; i++) {
        game.world->clock->sleep(16);
        game.window->getTimer()->domodal();
    }
    delete CMC_Behaviour::resolveParameters(&scope, nullptr, CXString(code), given);
    CMC_Object::flush(CMC_Behaviour::runLine(&scope, nullptr, CXString(code), given));
    scope.unload();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    static Game game;
    std::string_view text(reinterpret_cast<const char *>(data), size);
    if (isOutside(text) || text.find('\0') != std::string_view::npos) return 0;
    std::size_t end = std::min(text.find('\n'), text.size());
    play(game, text.substr(0, end), text.substr(std::min(end + 1, text.size())));
    CMC_Behaviour::flushTrash();
    CMC_VariableFactory::clearPool();
    game.dialogs->texts.clear();
    return 0;
}
