#include "app/CUnit6.h"

#include "app/CApplication.h"
#include "app/CMC_Scene.h"
#include "app/CWindow.h"
#include "files/CResourcesManager.h"
#include "graphics/CRefreshScreen.h"
#include "input/CKeyboard.h"

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

CRefreshScreen * CUnit6::getCanvas() { return window_ ? window_->getCanvas() : nullptr; }

void CUnit6::setBackground() {
    CColor black(0, 0, 0);
    if (getBackgroundFileName().IsString())
        window_->SetBackground(getBackgroundFileName());
    else
        window_->SetBackground(&black);
}

void CUnit6::done(CMC_Scene *, CUnit6 *) {
    dragging_ = false;
    if (CRefreshScreen * canvas = getCanvas()) {
        canvas->flush();
        canvas->SetBackground(static_cast<CGraphicsObject *>(nullptr));
    }
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

// The object passes over everything while it is dragged.
void CUnit6::onStartDragging(CGraphicsObject * object, CXPoint point, void *) {
    dragging_ = true;
    dragObject_ = object;
    dragStart_ = point;
    CRefreshScreen * canvas = getCanvas();
    if (!canvas || !object) return;
    dragPriority_ = canvas->GetPriority(object);
    canvas->SetPriority(object, kDragged);
}

void CUnit6::onDragging(CXPoint point) {
    if (dragObject_) dragObject_->Move(point.x - dragStart_.x, point.y - dragStart_.y);
    dragStart_ = point;
}

void CUnit6::onEndDragging(CXPoint) {
    CRefreshScreen * canvas = getCanvas();
    if (canvas && dragObject_) canvas->SetPriority(dragObject_, dragPriority_);
    dragging_ = false;
    dragObject_ = nullptr;
}

void CUnit6::bringBackDraggingObjectPosition(CXPoint point) {
    if (!dragObject_) return;
    CXPoint place = dragObject_->GetPosition();
    dragObject_->Move(point.x - place.x, point.y - place.y);
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
    if (key != kTab) return false;
    CKeyboard * keyboard = window_->getKeyboard();
    if (keyboard->isKeyPressed("lshift") || keyboard->isKeyPressed("rshift"))
        prevEditBox();
    else
        nextEditBox();
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
