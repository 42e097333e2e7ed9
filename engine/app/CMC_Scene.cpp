#include "app/CMC_Scene.h"

#include "app/CMC_Application.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "files/CFile.h"
#include "files/CFolder.h"
#include "files/CPath.h"
#include "graphics/CCollisionInspector.h"
#include "graphics/CGraphicsObject.h"
#include "input/CMC_Mouse.h"
#include "script/CMC_Array.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_Groupped.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_String.h"
#include "script/CMC_Timer.h"
#include "script/CMElement.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"
#include "script/TypeTable.h"

#include <algorithm>
#include <utility>

const char * const CMC_Scene::kKeys[10] = {"PATH",           "DLLS",   "DESCRIPTION", "CREATIONTIME",
                                           "LASTMODIFYTIME", "AUTHOR", "COAUTHORS",   "BACKGROUND",
                                           "MUSIC",          "DEAMON"};
const char * const CMC_Scene::kSignals[8] = {"ONINIT",    "ONDONE",        "ONSIGNAL",   "ONDOMODAL",
                                             "ONRESTART", "ONMUSICLOOPED", "ONACTIVATE", "ONDEACTIVATE"};
std::unique_ptr<CUnit6> CMC_Scene::defUnit;

CMC_Scene::CMC_Scene(CWindow * window, CMC_ObjectsContainer * parent, CMElement * element, int type)
    : CMC_ObjectsContainer(window, parent, element, type),
      path_(element->getPropertyValue("PATH")),
      dlls_(element->getPropertyValue("DLLS")),
      description_(element->getPropertyValue("DESCRIPTION")),
      creationTime_(element->getPropertyValue("CREATIONTIME")),
      lastModifyTime_(element->getPropertyValue("LASTMODIFYTIME")),
      author_(element->getPropertyValue("AUTHOR")),
      coAuthors_(element->getPropertyValue("COAUTHORS")),
      background_(element->getPropertyValue("BACKGROUND")),
      music_(element->getPropertyValue("MUSIC")),
      deamon_(element->getPropertyBoolValue("DEAMON")) {
    if (!defUnit) defUnit = std::make_unique<CUnit6>(window, "Default");
    if (parent) setParent(parent);
    setScene(this);
    addObject(this);
}

CMC_Scene::~CMC_Scene() { forgetScenes(); }

CMC_Runner * CMC_Scene::getRunner() { return CMC_RunnerFactory::getRunner(getType()); }

void CMC_Scene::doneDefUnit() { defUnit.reset(); }

bool CMC_Scene::isScene(const CMC_Object * object) {
    int type = object->getType();
    return type == types::kScene || type == types::kEpisode || type == types::kApplication;
}

CMC_Scene * CMC_Scene::around(CMC_ObjectsContainer * scope) {
    while (scope && !isScene(scope)) scope = scope->getParent();
    return static_cast<CMC_Scene *>(scope);
}

void CMC_Scene::forgetScenes() {
    for (int i = getElementsNo(); i-- > 0;)
        if (isScene(getObject(i))) removeObject(getObject(i));
}

bool CMC_Scene::onSignal(const CXString & signal) {
    if (CMC_ObjectsContainer::onSignal(signal)) return true;
    CMC_Object * fallback = getObject("__" + signal + "__");
    if (fallback && fallback->getType() == types::kBehaviour)
        static_cast<CMC_Behaviour *>(fallback)->run(this, nullptr, true);
    return false;
}

CMC_Scene * CMC_Scene::getScene(const CXString & name) {
    if (getName() == name) return this;
    for (int i = 0; i < subScenes_.size; i++)
        if (CMC_Scene * found = subScene(i)->getScene(name)) return found;
    return nullptr;
}

CMC_Application * CMC_Scene::getMCApplication() {
    for (CMC_ObjectsContainer * scope = this; scope; scope = scope->getParent())
        if (scope->getType() == types::kApplication) return static_cast<CMC_Application *>(scope);
    return nullptr;
}

void CMC_Scene::adopt(CMC_Scene * child) {
    child->setParent(this);
    subScenes_.add(child);
    addObject(child);
}

// ------------------------------------------------------------------------------------------------ entering

void CMC_Scene::enterFolders(const CXString & root) const {
    CFile::chDir(root);
    CFile::chDir(CFolder::DATA_FOLDER);
    if (path_.IsString()) CFile::chDir(path_);
}

void CMC_Scene::resolveDLLs(const CXString & list) {
    CWindow::toLog("scene " + getName() + ": this build loads no modules: " + list + "\n", false);
}

bool CMC_Scene::initialize(CMC_Scene * previous) {
    CWindow * window = getWindow();
    window->BeginWaitCursor();
    unit_ = getDefUnit();
    CFile::chDir(CWindow::rootPath);
    if (dlls_.IsString()) resolveDLLs(dlls_);
    // The local tree goes before the second root.
    const CXString folder = CFolder::DATA_FOLDER + "\\" + path_;
    if (CFile::chDir(folder) != 0 || !CFile::fileExists(getName() + ".cnv")) {
        CFile::chDir(CWindow::getCDPath());
        CFile::chDir(folder);
    }
    previousUnitName_ = unit_->getUnitName();
    unit_->setUnitName(getName());
    loadCnv();
    unit_->setBackgroundFileName(background_);
    unit_->initialize(this, getDefUnit());
    for (CMC_ObjectsContainer * outer = getParent(); outer; outer = outer->getParent()) outer->setScene(this);
    onInit();
    runInit();
    if (isSignalBound(kOnInit)) onSignal("ONINIT");
    startMusicFlag_ = !previous || previous->getMusicFilename() != getMusicFilename();
    unit_->startMusic(nullptr, false);
    window->EndWaitCursor();
    return true;
}

bool CMC_Scene::loadCnv() {
    const CXString file = getName() + ".cnv";
    if (!CFile::fileExists(file)) return false;
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(getWindow(), file));
    if (!elements) return false;
    CMElements * chosen = unit_ ? unit_->resolveObjects(this, elements.get()) : elements.get();
    delete resolveObjects(chosen);
    initializeBehaviours(this, elements->get(getName()));
    return true;
}

void CMC_Scene::onInit() {
    life::Guard guard;
    std::vector<life::Handle> objects;
    for (int i = 0; i < getElementsNo(); i++)
        if (!isScene(getObject(i))) objects.emplace_back(getObject(i));
    for (const life::Handle & each : objects)
        if (CMC_Object * object = each.get()) object->init();
}

void CMC_Scene::runInit() {
    CMC_Object * init = getOwnObject("__INIT__"); // an outer scope's has run already
    if (init && init->getType() == types::kBehaviour)
        static_cast<CMC_Behaviour *>(init)->run(this, nullptr, true);
}

// ------------------------------------------------------------------------------------------------ leaving

void CMC_Scene::unload(CMC_Scene * next) {
    life::Guard guard;
    endScope();
    doneDLLs();
    if (unit_) {
        unit_->done(this, getDefUnit());
        unit_->flushEditBoxes();
        unit_->setUnitName(previousUnitName_);
    }
    if (!next || next->getMusicFilename() != getMusicFilename()) stopMusic();
}

void CMC_Scene::endScope() {
    life::Guard guard;
    for (CMC_ObjectsContainer * outer = getParent(); outer; outer = outer->getParent())
        outer->onSubSceneDone(this);
    saveStats();
    CMC_Mouse::reset(true);
    flushBehList();
    // The scenes that the scope names stay there.
    std::vector<CMC_Object *> scenes;
    for (int i = 0; i < getElementsNo(); i++)
        if (isScene(getObject(i))) scenes.push_back(getObject(i));
    CMC_ObjectsContainer::unload(); // its objects take themselves off the watch
    for (CMC_Object * each : scenes) addObject(each);
    onSceneDone(this); // its own bindings to itself
}

// -------------------------------------------------------------------------------------------- collisions

void CMC_Scene::monitorCollisions(CGraphicsObject * object, bool alpha, CCollisionObserver * observer) {
    if (!getWindow() || object->getMonitorCollisionsFlag()) return;
    CCollisionInspector & inspector = getWindow()->getCollisionInspector();
    inspector.addNotifier(observer);
    inspector.addMonitoredObject(object, alpha);
    object->setMonitorCollisions(true);
    monitored_.emplace_back(object, observer);
}

void CMC_Scene::removeMonitorCollisions(CGraphicsObject * object, CCollisionObserver * observer) {
    auto found = std::find(monitored_.begin(), monitored_.end(), std::pair(object, observer));
    if (found == monitored_.end()) return;
    monitored_.erase(found);
    CCollisionInspector & inspector = getWindow()->getCollisionInspector();
    inspector.removeNotifier(observer);
    inspector.removeMonitoredObject(object);
    object->setMonitorCollisions(false);
}

// ------------------------------------------------------------------------------------------------ moving

bool CMC_Scene::domodal() {
    // Entering may set the next change, which waits for the next tick.
    if (CMC_Scene * target = std::exchange(pending_, nullptr)) _goto(target, current_);
    return current_ && current_->domodal();
}

void CMC_Scene::_goto(CMC_Scene * target, CMC_Scene * from) {
    unload(target);
    current_ = target;
    target->initialize(from);
    history_.add(target);
}

void CMC_Scene::_goto(const CXString & name) { pending_ = find(name); }

CMC_Scene * CMC_Scene::find(const CXString & name) {
    for (int i = 0; i < subScenes_.size; i++)
        if (subScene(i)->getName() == name) return subScene(i);
    return nullptr;
}

void CMC_Scene::restart() {
    if (subScenes_.size > 0) pending_ = subScene(0);
    onSignal("ONRESTART");
}

// ------------------------------------------------------------------------------------------------ music

CXString CMC_Scene::getMusicFilename() {
    if (music_.IsString()) return music_;
    CMC_ObjectsContainer * outer = getParent();
    return outer && isScene(outer) ? static_cast<CMC_Scene *>(outer)->getMusicFilename() : CXString();
}

void CMC_Scene::startMusic(const char * file, bool force) {
    CUnit6 * unit = unit_ ? unit_ : getDefUnit();
    CMC_Scene * running = unit ? unit->getScene() : nullptr;
    if (!running) return;
    if (file && running->getMusicFilename() != file) {
        running->music_ = file;
        running->startMusicFlag_ = true;
    }
    unit->startMusic(file, force);
}

void CMC_Scene::stopMusic() {
    if (CUnit6 * unit = unit_ ? unit_ : getDefUnit()) unit->stopMusic();
    startMusicFlag_ = true;
}

// ------------------------------------------------------------------------------------------------ queries

void CMC_Scene::getPlayingSeq(CMC_Array * names) {
    for (int i = 0; i < getElementsNo(); i++) {
        CMC_Object * object = getObject(i);
        if (object->getType() != types::kSequence || !object->isPlaying()) continue;
        CMC_String name(object->getName(), "temp");
        names->add(&name);
    }
}

void CMC_Scene::getPlayingAnimo(CMC_Groupped * group) {
    for (int i = 0; i < getElementsNo(); i++)
        if (getObject(i)->getType() == types::kAnimo && getObject(i)->isPlaying()) group->add(getObject(i));
}

void CMC_Scene::resumeExcept(CMC_Array *) {
    // Sequences are resumed one by one, but for those that the array names; they come with their media.
}

void CMC_Scene::getRunningTimers(CMC_Groupped * group) {
    for (int i = 0; i < getElementsNo(); i++)
        if (getObject(i)->getType() == types::kTimer && static_cast<CMC_Timer *>(getObject(i))->isEnabled())
            group->add(getObject(i));
}

void CMC_Scene::createObject(const CXString & type, const CXString & name) {
    const TypeRow * row = type == "BUTTON" ? typetable::find(types::kButton)
                          : type == "VGO"  ? typetable::find(types::kVirtualGraphicsObject)
                                           : nullptr;
    CMC_Object * object = row && row->create ? row->create(this, name) : nullptr;
    if (object) addObject(object);
}
