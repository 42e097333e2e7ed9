#include "app/CUnit6.h"

#include "app/CApplication.h"
#include "app/CMC_Scene.h"
#include "app/CWindow.h"
#include "files/CResourcesManager.h"

CUnit6::CUnit6(CWindow * window, const CXString & name)
    : window_(window), name_(name), resources_(std::make_unique<CResourcesManager>(window)) {
    CApplication * application = window_ ? window_->getApplication() : nullptr;
    if (application && application->getGeneralResourcesManager())
        application->getGeneralResourcesManager()->add(resources_.get());
}

CUnit6::~CUnit6() {
    if (!scene_ || !window_) return;
    window_->removeKeyListener(this);
    window_->removeMouseListener(this);
}

void CUnit6::initialize(CMC_Scene * scene, CUnit6 * unit) {
    scene_ = scene;
    retCode_ = 0;
    active_ = true;
    musicPlaying_ = unit ? CXString(unit->getMusicFileName()) : CXString();
    setBackground();
    window_->registerKeyListener(this);
    window_->registerMouseListener(this, kMousePriority);
}

void CUnit6::done(CMC_Scene *, CUnit6 *) {
    dragging_ = false;
    scene_ = nullptr;
    active_ = false;
    initiallyUpdated_ = false;
    window_->removeKeyListener(this);
    window_->removeMouseListener(this);
    resources_->flush();
    retPath_.removeAll();
}

void CUnit6::startMusic(const char * file, bool force) {
    if (!scene_ || (!force && !scene_->shouldMusicBeStarted())) return;
    CXString name = file ? CXString(file) : scene_->getMusicFilename();
    if (!name.IsString()) return;
    if (name.equalsIgnoreCase(musicPlaying_) && window_->isMusicPlaying()) return;
    musicPlaying_ = name;
    window_->StartMusic(name, true);
}

void CUnit6::stopMusic() {
    musicPlaying_ = "";
    window_->StopMusic();
}

// The object passes over everything while it is dragged; its moves come with the canvas.
void CUnit6::onStartDragging(CGraphicsObject * object, CXPoint point, void *) {
    dragging_ = true;
    dragObject_ = object;
    dragStart_ = point;
}

void CUnit6::onDragging(CXPoint point) { dragStart_ = point; }

void CUnit6::onEndDragging(CXPoint) {
    dragging_ = false;
    dragObject_ = nullptr;
}

void CUnit6::flushEditBoxes() {
    editBoxes_.removeAll();
    currentEditBox_ = -1;
}

void CUnit6::nextEditBox() {
    if (editBoxes_.size > 0) activateEditBox((currentEditBox_ + 1) % editBoxes_.size);
}

void CUnit6::prevEditBox() {
    if (editBoxes_.size > 0) activateEditBox(currentEditBox_ < 1 ? editBoxes_.size - 1 : currentEditBox_ - 1);
}

bool CUnit6::onKeyDown(int key) {
    if (key == kTab) nextEditBox();
    return false;
}

bool CUnit6::onMouseMove(CXPoint point) {
    if (dragging_) onDragging(point);
    return false;
}

bool CUnit6::onClick(CXPoint point) {
    if (dragging_ && draggingMode_) onEndDragging(point);
    return false;
}

bool CUnit6::onRelease(CXPoint point) {
    if (dragging_ && !draggingMode_) onEndDragging(point);
    return false;
}
