#include "app/CMC_Episode.h"

#include "app/CMC_StructureParser.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "script/CMElement.h"

const char * const CMC_Episode::kOwnKeys[2] = {"SCENES", "STARTWITH"};

CMC_Episode::CMC_Episode(CWindow * window, CMC_StructureParser * parser, CMElement * element)
    : CMC_Scene(window, nullptr, element, types::kEpisode) {
    for (CMC_Scene * scene : parser->listed(element, "SCENES")) adopt(scene);
    if (CXString start = element->getPropertyValue("STARTWITH"); start.IsString())
        startScene_ = dynamic_cast<CMC_Scene *>(parser->get(start));
    if (!startScene_ && subScenes_.size > 0) startScene_ = subScene(0);
}

bool CMC_Episode::initialize(CMC_Scene * previous) {
    unit_ = getDefUnit();
    enterFolders(CWindow::getCDPath());
    loadCnv();
    onInit();
    runInit();
    if (!startScene_) {
        current_ = nullptr;
        return false;
    }
    CMC_Scene::_goto(startScene_, previous);
    return true;
}

void CMC_Episode::unload(CMC_Scene * next) {
    if (!current_) return;
    if (isSignalBound(kOnDone)) onSignal("ONDONE");
    current_->unload(next);
    latestScene_ = current_->getName();
    current_ = nullptr;
}

void CMC_Episode::next() {
    int i = current_ ? subScenes_.find(current_) : -1;
    if (i >= 0 && i + 1 < subScenes_.size) pending_ = subScene(i + 1);
}

void CMC_Episode::prev() {
    int i = current_ ? subScenes_.find(current_) : -1;
    if (i > 0) pending_ = subScene(i - 1);
}

void CMC_Episode::back() {
    if (history_.size < 2) return;
    pending_ = static_cast<CMC_Scene *>(history_.at(history_.size - 2));
    history_.removeAt(history_.size - 1);
}
