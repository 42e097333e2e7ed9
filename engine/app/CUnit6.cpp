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
    dragged(nullptr);
    if (!scene_ || !window_) return;
    window_->removeKeyListener(this);
    window_->removeMouseListener(this);
}

void CUnit6::initialize(CMC_Scene * scene, CUnit6 * unit) {
    scene_ = scene;
    retCode_ = 0;
    active_ = true;
    musicPlaying_ = unit ? CXString(unit->getMusicFileName()) : CXString();
    randomPlayable_ = std::make_unique<CRandomPlayable>(window_, this);
    randomPlayable_->addNotifier(this);
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
    dragged(nullptr);
    if (CRefreshScreen * canvas = getCanvas()) {
        canvas->flush();
        canvas->SetBackground(static_cast<CGraphicsObject *>(nullptr));
    }
    scene_ = nullptr;
    active_ = false;
    initiallyUpdated_ = false;
    randomPlayable_.reset();
    window_->removeKeyListener(this);
    window_->removeMouseListener(this);
    resources_->flush();
    retPath_.removeAll();
}

void CUnit6::addRandomPlayable(CPlayable * playable, double rate, int series, const CXString & event) {
    if (randomPlayable_) randomPlayable_->add(playable, rate, series, event);
}

void CUnit6::removeRandomPlayable(CPlayable * playable) {
    if (randomPlayable_) randomPlayable_->remove(playable);
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

void CUnit6::dragged(CGraphicsObject * object) {
    if (dragObject_) dragObject_->removeInvalidateObserver(this);
    dragObject_ = object;
    if (dragObject_) dragObject_->addInvalidateObserver(this);
}

void CUnit6::onDestroy(CGraphicsObject * object) {
    if (dragObject_ == object) dragObject_ = nullptr;
}

void CUnit6::onReplaced(CGraphicsObject * object, CGraphicsObject * fresh) {
    if (dragObject_ == object) dragged(fresh);
}

// The object passes over everything while it is dragged.
void CUnit6::onStartDragging(CGraphicsObject * object, CXPoint point, void *) {
    if (dragging_) onEndDragging(point); // one at a time
    dragging_ = true;
    dragged(object);
    dragStart_ = point;
    CRefreshScreen * canvas = getCanvas();
    if (!canvas || !object) return;
    dragPriority_ = canvas->GetPriority(object);
    canvas->SetPriority(object, kDragged);
}

void CUnit6::onDragging(CXPoint point) {
    CXPoint d = point - dragStart_;
    dragStart_ = point;
    if (dragObject_ && d != CXPoint()) dragObject_->Move(d);
}

void CUnit6::onEndDragging(CXPoint) {
    CRefreshScreen * canvas = getCanvas();
    if (canvas && dragObject_) canvas->SetPriority(dragObject_, dragPriority_);
    dragging_ = false;
    dragged(nullptr);
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
