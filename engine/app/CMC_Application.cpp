#include "app/CMC_Application.h"

#include "app/CMC_CNVLoader.h"
#include "app/CMC_Episode.h"
#include "app/CMC_StructureParser.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "core/CXVersion.h"
#include "files/CFile.h"
#include "files/CFolder.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_System.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"

const char * const CMC_Application::kOwnKeys[5] = {"TARNOOK_VERSION", "EPISODES", "SCENES", "STARTWITH",
                                                   "VERSION"};
const char * const CMC_Application::kSignals[9] = {"ONINIT",     "ONDONE",       "ONSIGNAL",
                                                   "ONDOMODAL",  "ONRESTART",    "ONMUSICLOOPED",
                                                   "ONACTIVATE", "ONDEACTIVATE", "ONUPGRADE"};

CMC_Application::CMC_Application(CWindow * window, CMC_StructureParser * parser, CMElement * element)
    : CMC_Scene(window, nullptr, element, types::kApplication),
      version_(std::make_unique<CXVersion>(element->getPropertyValue("TARNOOK_VERSION"))) {
    owned_.add(parser->getObjects());
    CMC_Behaviour::initTrash();
    for (CMC_Scene * episode : parser->listed(element, "EPISODES")) {
        adopt(episode);
        for (CXObject * scene : *episode->getSubScenes()) addObject(static_cast<CMC_Object *>(scene));
    }
    for (CMC_Scene * scene : parser->listed(element, "SCENES")) adopt(scene);
    if (CXString start = element->getPropertyValue("STARTWITH"); start.IsString())
        startScene_ = dynamic_cast<CMC_Scene *>(parser->get(start));
    if (!startScene_ && subScenes_.size > 0) startScene_ = subScene(0);
    enterFolders(CWindow::getCDPath());
    loadCnv();
}

CMC_Application::~CMC_Application() {
    version_.reset();
    CMC_Behaviour::doneTrash();
    if (current_) {
        onSignal("ONDONE");
        current_->unload(nullptr);
        current_->leave();
        current_ = nullptr;
    }
    endScope();
    // Scopes name each other: none may look at one that is gone.
    forgetScenes();
    for (CXObject * each : owned_) static_cast<CMC_Scene *>(each)->forgetScenes();
    for (CXObject * each : owned_) delete each;
    doneDefUnit();
}

bool CMC_Application::initialize(CMC_Scene *) {
    unit_ = getDefUnit();
    auto * random = new CMC_Object("RANDOM", types::kRandom);
    random->setScene(this);
    addObject(random);
    addObject(new CMC_System(this));
    addObject(new CMC_CNVLoader(getWindow(), this));
    onInit();
    runInit();
    if (startScene_) CMC_Scene::_goto(startScene_, nullptr);
    return true;
}

bool CMC_Application::domodal() {
    CMC_VariableFactory::clearPool();
    CMC_Behaviour::flushTrash();
    CMC_Scene::domodal();
    return nextGame_.IsString();
}

void CMC_Application::restart() {
    if (current_ && current_ == startScene_) {
        current_->restart();
        return;
    }
    unload(startScene_);
    current_ = startScene_;
    if (current_) current_->initialize(nullptr);
}

void CMC_Application::unload(CMC_Scene * next) {
    if (!current_) return;
    onSignal("ONDONE");
    current_->unload(next);
    current_->leave();
    current_ = nullptr;
}

void CMC_Application::exit() {
    getWindow()->quit();
    onSignal("ONEXIT");
}

void CMC_Application::storeBinary() {
    CWindow::toLog("application.bin: this build writes no stored applications\n", false);
}
