#include "app/CMC_Application_Runner.h"

#include "app/CMC_Application.h"
#include "app/CMC_Scene_Runner.h"
#include "app/CWindow.h"
#include "core/Diagnostics.h"
#include "files/CLanguageOSVer.h"
#include "script/CMC_Behaviour.h"
#include "script/Notes.h"

namespace {

CMC_Application * application(Call & call) { return call.self<CMC_Application>(); }
CWindow * window(Call & call) { return application(call)->getWindow(); }

CMC_Variable * exit(Call & call) {
    application(call)->exit();
    return nullptr;
}

CMC_Variable * restart(Call & call) {
    application(call)->restart();
    return nullptr;
}

CMC_Variable * goTo(Call & call) {
    application(call)->CMC_Scene::_goto(call.text(0));
    return nullptr;
}

CMC_Variable * setLanguage(Call & call) {
    window(call)->getLangIfc()->setLanguageFolder(call.text(0));
    return nullptr;
}

CMC_Variable * getLanguage(Call & call) { return result(window(call)->getLangIfc()->getLanguageFolder()); }

CMC_Variable * print(Call &) {
    notes::add(notes::Kind::other, "this build doesn't print");
    return nullptr;
}

CMC_Variable * enableMusic(Call & call) {
    window(call)->MusicOn(true);
    return nullptr;
}

CMC_Variable * disableMusic(Call & call) {
    window(call)->MusicOn(false);
    return nullptr;
}

CMC_Variable * storeBinary(Call & call) {
    application(call)->storeBinary();
    return nullptr;
}

// The object that a scene of the first name holds under the second one; null when either is missing.
CMC_Object * inScene(Call & call) {
    CMC_Object * scene = call.named(0);
    if (!scene || !CMC_Scene::isScene(scene)) return nullptr;
    return static_cast<CMC_Scene *>(scene)->getObject(call.text(1));
}

// A behaviour of one scene runs with the names of another.
CMC_Variable * runEnv(Call & call) {
    CMC_Object * found = inScene(call);
    if (!found || found->getType() != types::kBehaviour) {
        const CXString & name = call.object->getName();
        dispMsgBox(nullptr, "Error running runEnv( " + name + "=\"" + call.text(0) + "\", " + name + "=\"" +
                                call.text(1) + "\" )");
        return nullptr;
    }
    life::Guard guard;
    life::Handle alive(found);
    auto * behaviour = static_cast<CMC_Behaviour *>(found);
    CMC_ObjectsContainer * before = behaviour->getScene();
    behaviour->setScene(call.scope);
    behaviour->run(call.object, nullptr, true);
    if (alive.get()) behaviour->setScene(before);
    return nullptr;
}

CMC_Variable * existsEnv(Call & call) { return result(inScene(call) != nullptr); }

CMC_Variable * startDraggingWindow(Call & call) {
    window(call)->startDraggingWindow({call.integer(0), call.integer(1)});
    return nullptr;
}

CMC_Variable * stopDraggingWindow(Call & call) {
    window(call)->stopDraggingWindow();
    return nullptr;
}

CMC_Variable * reload(Call & call) {
    application(call)->setNextGame(call.text(0));
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "EXIT", "", 0, exit},
    {2, "RESTART", "", 0, restart},
    {3, "GOTO", "name", 1, goTo},
    {4, "SETLANGUAGE", "locale code", 1, setLanguage},
    {5, "GETLANGUAGE", "", 0, getLanguage},
    {6, "PRINT", "graphics object name | left, top, right, bottom", 1, print},
    {7, "ENABLEMUSIC", "", 0, enableMusic},
    {8, "DISABLEMUSIC", "", 0, disableMusic},
    {9, "RUN", "object name, method name, arguments ...", 2, scenemethods::run},
    {10, "STOREBINARY", "", 0, storeBinary},
    {11, "RUNENV", "scene name, behaviour name", 2, runEnv},
    {12, "EXISTSENV", "scene name, behaviour name", 2, existsEnv},
    {13, "STARTDRAGGINGWINDOW", "x, y", 2, startDraggingWindow},
    {14, "STOPDRAGGINGWINDOW", "", 0, stopDraggingWindow},
    {15, "RELOAD", "folder", 1, reload},
};

} // namespace

CMC_Application_Runner::CMC_Application_Runner() : CMC_Runner(kRows) {}
