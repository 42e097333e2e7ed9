#include "sound/CMC_Sound.h"

#include "app/CApplication.h"
#include "app/CMC_Scene.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "files/CResourcesManager.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"
#include "sound/CSound4.h"

#include <utility>

const char * const CMC_Sound::kSignals[6] = {"ONINIT",    "ONDONE",     "ONSIGNAL",
                                             "ONSTARTED", "ONFINISHED", "ONRESUMED"};
const char * const CMC_Sound::kKeys[3] = {"FILENAME", "PRELOAD", "FLUSHAFTERPLAYED"};

CMC_Sound::CMC_Sound(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kSound),
      window_(scope ? scope->getWindow() : nullptr),
      preload_(element->getPropertyBoolValue("PRELOAD")),
      flushAfterPlayed_(element->getPropertyBoolValue("FLUSHAFTERPLAYED")),
      fileName_(element->getPropertyValue("FILENAME")) {
    initSound(fileName_);
    initializeBehaviours(scope, element);
}

CMC_Sound::CMC_Sound(CMC_ObjectsContainer * scope, const CXString & name)
    : CMC_Object(name, types::kSound), window_(scope ? scope->getWindow() : nullptr) {
    scene_ = scope;
}

CMC_Sound::~CMC_Sound() { leave(); }

CMC_Runner * CMC_Sound::getRunner() { return CMC_RunnerFactory::getRunner(types::kSound); }

CMC_Object * CMC_Sound::clone() {
    auto * made = new CMC_Sound(scene_, CXString());
    made->preload_ = preload_;
    made->flushAfterPlayed_ = flushAfterPlayed_;
    made->fileName_ = fileName_;
    made->initSound(fileName_);
    return made;
}

void CMC_Sound::initSound(const CXString & name) {
    if (!window_ || !name.IsString()) return;
    CApplication * application = window_->getApplication();
    CXString path = application ? application->getWAVPath(name) : window_->GetSoundFXFullPath(name);
    CResourcesManager * cache = nullptr;
    if (scene_ && scene_->getType() == types::kScene) {
        CUnit6 * unit = static_cast<CMC_Scene *>(scene_)->getUnit();
        cache = unit ? unit->getResourcesManager() : nullptr;
    }
    sound_ = cache ? static_cast<CSound4 *>(cache->get(path)) : nullptr;
    isShared_ = cache != nullptr;
    if (!sound_) {
        sound_ = new CSound4(window_, path, preload_, flushAfterPlayed_);
        if (cache) cache->add(sound_);
    }
    sound_->addNotifier(this);
}

// The last user of a shared sound frees it. Its own may be telling of its end just now.
void CMC_Sound::leave() {
    CSound4 * sound = std::exchange(sound_, nullptr);
    if (!sound) return;
    sound->removeNotifier(this);
    if (!isShared_) {
        sound->Stop();
        life::bury(sound);
        return;
    }
    CUnit6 * unit = CMC_Scene::getDefUnit();
    CResourcesManager * cache = unit ? unit->getResourcesManager() : nullptr;
    if (cache && cache->contains(sound)) cache->remove(sound);
}

bool CMC_Sound::done(bool all) {
    bool ended = CMC_Object::done(all);
    if (sound_) sound_->stop(false);
    leave();
    return ended;
}

bool CMC_Sound::load(const CXString & name) {
    if (!name.IsString() || !window_) return false;
    fileName_ = name;
    if (!sound_) { // of its own: another object may share what the cache has
        sound_ = new CSound4(window_);
        sound_->addNotifier(this);
    }
    return sound_->Load(window_->GetSoundFXFullPath(name));
}

bool CMC_Sound::isPlaying() { return sound_ && sound_->isPlaying(); }

bool CMC_Sound::raise(int signal) {
    if (isSignalBound(signal) && life::Handle(this).get())
        onSignal(kSignals[signal]); // not when it was removed
    return true;
}

bool CMC_Sound::onPlayableStarted(CPlayable *) { return raise(kOnStarted); }
bool CMC_Sound::onPlayableFinished(CPlayable *) { return raise(kOnFinished); }
bool CMC_Sound::onPlayableResumed(CPlayable *) { return raise(kOnResumed); }
