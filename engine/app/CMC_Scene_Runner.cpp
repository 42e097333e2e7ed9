#include "app/CMC_Scene_Runner.h"

#include "app/CMC_Scene.h"
#include "app/CWindow.h"
#include "app/ScenePause.h"
#include "input/CHotSpot.h"
#include "script/CMC_Array.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_Groupped.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/Notes.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

CMC_Variable * scenemethods::run(Call & call) {
    CMC_Object * object = call.self<CMC_Scene>()->getObject(call.text(0));
    if (!object) return nullptr;
    CMC_Runner * runner = CMC_RunnerFactory::getRunner(object->getType());
    if (!runner) runner = object->getRunner();
    if (!runner) return nullptr;
    CXString method = call.text(1);
    CXVector rest(std::max(call.count() * 2, 1), 0.75F);
    for (int i = 2; i < call.count(); i++) rest.add(call.params->at(i));
    return runner->run(method, object, call.scope, &rest);
}

namespace {

constexpr std::int64_t kMostClones = 1 << 20; // looked up by one call

CMC_Scene * scene(Call & call) { return call.self<CMC_Scene>(); }
CWindow * window(Call & call) { return scene(call)->getWindow(); }

CMC_Variable * startMusic(Call & call) {
    CXString file = call.text(0);
    scene(call)->startMusic(call.has(0) ? file.c_str() : nullptr, true);
    return nullptr;
}

CMC_Variable * stopMusic(Call & call) {
    scene(call)->stopMusic();
    return nullptr;
}

CMC_Variable * getDraggedName(Call & call) { return result(scene(call)->getDraggedName()); }

CMC_Variable * getPlayingSeq(Call & call) {
    if (auto * array = call.named<CMC_Array>(0, types::kArray)) scene(call)->getPlayingSeq(array);
    return nullptr;
}

// Calls step with the names of the clones from first to last, until it answers false.
template <class Step>
void eachClone(const CXString & object, std::int64_t first, std::int64_t last, Step && step) {
    if (last - first >= kMostClones) {
        notes::add(notes::Kind::other, "too many clones to look for");
        return;
    }
    for (std::int64_t i = first; i <= last; i++)
        if (!step(object + "_" + CXString::toString(static_cast<int>(i)))) return;
}

CMC_Variable * runClones(Call & call) {
    CMC_Object * object = scene(call)->getObject(call.text(0));
    if (!object) return nullptr;
    const CXString name = object->getName();
    int first = std::max(call.integer(1), 1), last = call.integer(2);
    if (last < 1) last = object->getClonesNo();
    life::Guard guard;
    const CXString code = call.text(3);
    CMC_Object * named = call.scope->getObject(code);
    CMC_Behaviour * temporary = nullptr;
    if (!named) {
        named = temporary = new CMC_Behaviour(call.scope, "temp", code);
        temporary->init();
    }
    life::Handle behaviour(named->getType() == types::kBehaviour ? named : nullptr);
    auto * args = new CXArray(101, 0.75F);
    args->add(new CXString);
    for (int i = 4; i < call.count(); i++) args->add(new CXString(call.text(i)));
    // A BREAK ends one turn, not the walk.
    eachClone(name, first, last, [&](const CXString & clone) {
        *args->stringAt(0) = clone;
        if (behaviour.get()) static_cast<CMC_Behaviour *>(behaviour.get())->run(nullptr, args, true);
        return behaviour.get() != nullptr;
    });
    life::buryStrings(args);
    life::bury(temporary);
    return nullptr;
}

CMC_Variable * createObject(Call & call) {
    scene(call)->createObject(call.text(0), call.text(1));
    return nullptr;
}

CMC_Variable * remove(Call & call) {
    CMC_Object * object = scene(call)->getObject(call.text(0));
    if (object && !CMC_Scene::isScene(object) && scene(call)->removeObject(object)) life::bury(object);
    return nullptr;
}

CMC_Variable * removeClones(Call & call) {
    // Clones may outlive their source; only who wants all of them needs it.
    CMC_Object * object = scene(call)->getObject(call.text(0));
    const CXString name = object ? object->getName() : call.text(0);
    int first = call.integer(1), last = call.integer(2);
    if (first == -1) first = 1;
    if (last == -1) last = object ? object->getClonesNo() : 0;
    life::Guard guard;
    eachClone(name, first, last, [&](const CXString & each) {
        CMC_Object * clone = scene(call)->getObject(each);
        // NAME_0 finds the source, which stays.
        if (!clone || clone->getName() != each || !scene(call)->removeObject(clone)) return true;
        life::Handle alive(clone);
        clone->done(false);
        if (alive.get()) life::bury(clone);
        return true;
    });
    return nullptr;
}

CMC_Variable * setMusicVolume(Call & call) {
    window(call)->setMusicVolume(call.integer(0));
    return nullptr;
}

CMC_Variable * getMusicVolume(Call & call) { return result(window(call)->getMusicVolume()); }

CMC_Variable * setMusicPan(Call & call) {
    window(call)->setMusicPan(call.integer(0));
    return nullptr;
}

CMC_Variable * setMusicFreq(Call & call) {
    window(call)->setMusicFreq(call.integer(0));
    return nullptr;
}

CMC_Variable * pause(Call & call) {
    scenepause::pause(window(call), !call.boolean(0));
    return nullptr;
}

CMC_Variable * resume(Call & call) {
    scenepause::resume(window(call), !call.boolean(0));
    return nullptr;
}

CMC_Variable * resumeOnly(Call & call) {
    auto * names = call.named<CMC_Array>(0, types::kArray);
    scenepause::resume(window(call), !call.boolean(1));
    if (names) scene(call)->resumeExcept(names);
    return nullptr;
}

CMC_Variable * resumeSeqOnly(Call & call) {
    if (auto * names = call.named<CMC_Array>(0, types::kArray)) scene(call)->resumeExcept(names);
    return nullptr;
}

CMC_Variable * isPaused(Call &) { return result(CWindow::isPaused()); }

CMC_Variable * setMinPriority(Call & call) {
    CHotSpot::setMinPriority(call.integer(0));
    return nullptr;
}

CMC_Variable * setMaxPriority(Call & call) {
    CHotSpot::setMaxPriority(call.integer(0));
    return nullptr;
}

CMC_Variable * getMinPriority(Call &) { return result(CHotSpot::getMinPriority()); }
CMC_Variable * getMaxPriority(Call &) { return result(CHotSpot::getMaxPriority()); }

CMC_Variable * getElementsNo(Call & call) { return result(scene(call)->getObjectsHash()->getSize()); }

// Minutes and seconds in two digits each, with nothing between them; above 99 minutes the first digit takes
// the hundreds and tens together.
CMC_Variable * toTime(Call & call) {
    int seconds = call.integer(0), minutes = seconds / 60;
    char digits[24];
    std::snprintf(digits, sizeof digits, "%d%d%d%d", minutes / 10, std::abs(minutes % 10),
                  std::abs(seconds % 60 / 10), std::abs(seconds % 10));
    return result(digits);
}

CMC_Variable * getPlayingAnimo(Call & call) {
    if (auto * group = call.named<CMC_Groupped>(0, types::kGroup)) scene(call)->getPlayingAnimo(group);
    return nullptr;
}

CMC_Variable * getRunningTimer(Call & call) {
    if (auto * group = call.named<CMC_Groupped>(0, types::kGroup)) scene(call)->getRunningTimers(group);
    return nullptr;
}

CMC_Variable * getObjects(Call & call) {
    CXString type = call.text(0);
    if (auto * group = call.named<CMC_Groupped>(1, types::kGroup)) scene(call)->getObjects(type, group);
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "STARTMUSIC", "file = the scene's own", 0, startMusic},
    {2, "STOPMUSIC", "", 0, stopMusic},
    {3, "GETDRAGGEDNAME", "", 0, getDraggedName},
    {4, "GETPLAYINGSEQ", "array name", 1, getPlayingSeq},
    {5, "RUN", "object name, method name, arguments ...", 2, scenemethods::run},
    {6, "RUNCLONES", "object name, first, last, behaviour, arguments ...", 4, runClones},
    {7, "CREATEOBJECT", "type, name", 2, createObject},
    {8, "REMOVE", "name", 1, remove},
    {9, "REMOVECLONES", "object name, first, last", 3, removeClones},
    {10, "SETMUSICVOLUME", "integer", 1, setMusicVolume},
    {11, "GETMUSICVOLUME", "", 0, getMusicVolume},
    {12, "SETMUSICPAN", "integer", 1, setMusicPan},
    {13, "SETMUSICFREQ", "integer", 1, setMusicFreq},
    {14, "PAUSE", "timers go on = FALSE", 0, pause},
    {15, "RESUME", "timers went on = FALSE", 0, resume},
    {16, "RESUMEONLY", "array name, timers went on = FALSE", 1, resumeOnly},
    {17, "RESUMESEQONLY", "array name", 1, resumeSeqOnly},
    {18, "SETMINHSPRIORITY", "integer", 1, setMinPriority},
    {19, "SETMAXHSPRIORITY", "integer", 1, setMaxPriority},
    {20, "GETMINHSPRIORITY", "", 0, getMinPriority},
    {21, "GETMAXHSPRIORITY", "", 0, getMaxPriority},
    {22, "GETELEMENTSNO", "", 0, getElementsNo},
    {23, "TOTIME", "seconds", 1, toTime},
    {24, "ISPAUSED", "", 0, isPaused},
    {25, "GETPLAYINGANIMO", "group name", 1, getPlayingAnimo},
    {26, "GETRUNNINGTIMER", "group name", 1, getRunningTimer},
    {27, "GETOBJECTS", "type, group name", 2, getObjects},
};

} // namespace

CMC_Scene_Runner::CMC_Scene_Runner() : CMC_Runner(kRows) {}
