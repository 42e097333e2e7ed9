#include "graphics/CRefreshScreen.h"

#include "app/CMC_Scene.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "graphics/CCanvasObserver.h"
#include "graphics/CImageFile.h"
#include "graphics/CSurface.h"

#include <algorithm>
#include <utility>

CRefreshScreen::CRefreshScreen(CWindow * window, bool ownSurface)
    : CGraphicsObject(window), background_(window, this) {
    width_ = window->GetScreenSize().cx;
    height_ = window->GetScreenSize().cy;
    pitch_ = width_;
    bpp_ = window->GetBpp();
    if (!ownSurface) return;
    own_ = std::make_unique<CDirectDrawSurface>(window, CXSize(width_, height_), bpp_);
    ownsPixels_ = false;
    data_ = own_->GetDataPtr();
}

CRefreshScreen::~CRefreshScreen() { CRefreshScreen::Empty(); }

// ------------------------------------------------------------------------------------------------ objects

void CRefreshScreen::put(CGraphicsObject * object, int priority) {
    object->SetCanvas(this);
    queue_.add(object, priority, 0);
    Invalidate(object);
}

void CRefreshScreen::operator>>(CGraphicsObject * object) { queue_.remove(object); }

void CRefreshScreen::SetPriority(CGraphicsObject * object, int priority) {
    if (!queue_.find(object)) return;
    queue_.remove(object);
    queue_.add(object, priority, 0);
}

int CRefreshScreen::GetPriority(CGraphicsObject * object) {
    CValidationElement * element = queue_.find(object);
    return element ? element->priority : 0;
}

void CRefreshScreen::Empty() {
    for (int i = 0; i < queue_.size; i++) queue_.element(i)->object->SetCanvas(nullptr);
    queue_.removeAll();
}

void CRefreshScreen::flush() { Invalidate(); }

void CRefreshScreen::Visible(bool on) {
    for (int i = 0; i < queue_.size; i++) queue_.element(i)->object->Visible(on);
}

void CRefreshScreen::Invalidate(CXRect * rect) {
    if (!rect) {
        region_.add(nullptr);
        return;
    }
    CXRect part = rect->Common(screen());
    if (part.Width() > 0 && part.Height() > 0) region_.add(&part);
}

void CRefreshScreen::Invalidate(CGraphicsObject * object) {
    if (!object->isVisible() || !queue_.find(object)) return;
    CXRect box = object->GetBoundingBox();
    Invalidate(&box);
}

// --------------------------------------------------------------------------------------------- background

void CRefreshScreen::SetBackground(CGraphicsObject * picture) {
    background_.SetBackground(picture);
    Invalidate();
}

void CRefreshScreen::SetBackground(CColor * colour) {
    background_.SetBackground(colour);
    Invalidate();
}

void CRefreshScreen::SetBackground(const CXString & file) {
    CImageFile reader(window_);
    reader.Load(file);
    backgroundFile_.reset(reader.GetGraphicsObject());
    if (backgroundFile_ && backgroundFile_->LastError() == 0) SetBackground(backgroundFile_.get());
}

void CRefreshScreen::setBackground(std::unique_ptr<CDirectDrawSurface> picture) {
    background_.SetBackground(std::move(picture));
    Invalidate();
}

// ------------------------------------------------------------------------------------------------- frames

void CRefreshScreen::Redraw() {
    if (own_) __redraw(own_.get());
    region_.removeAll();
}

bool CRefreshScreen::Redraw(CDirectDrawSurface * onto, CSurface *, bool * finished) {
    CUnit6 * unit = CMC_Scene::getDefUnit();
    bool isFirst = unit && unit->isActive() && !unit->wasInitiallyUpdated();
    if (isFirst) {
        if (notifies_) notify(kInitialUpdate);
        unit->onInitialUpdate();
        Invalidate();
        *finished = true;
    }
    bool painted = __redraw(onto);
    if (isFirst) {
        unit->onCanvasRefreshed();
        notify(kInitialUpdated);
    }
    return painted;
}

bool CRefreshScreen::__redraw(CDirectDrawSurface * onto) {
    bool hadRects = !region_.isEmpty();
    frames_++;
    destination_ = onto;
    background_.Redraw(onto, region_);
    bool tells = queue_.size > 0 && notifies_;
    if (tells) notify(kUpdate);
    for (int i = 0; i < queue_.size; i++) paint(*queue_.element(i), onto);
    if (tells) notify(kUpdated);
    queue_.clearMarks();
    if (refreshFlags_ & kGray) onto->ToGrayScale();
    return hadRects;
}

void CRefreshScreen::paint(CValidationElement & element, CDirectDrawSurface * onto) {
    CGraphicsObject * object = element.object;
    if (!object->isVisible()) return;
    if (object->isInvalidated()) {
        // It changed by itself: all of it is drawn, whatever the region holds.
        CXRect box = object->GetBoundingBox().Common(screen());
        if (box.Width() <= 0 || box.Height() <= 0) return;
        CXRect kept = object->GetClippingRect();
        CXPoint corner = object->ClientCoords(CXPoint(0, 0));
        object->SetClippingRect(box + corner);
        object->SetDestiny(onto);
        object->Redraw();
        object->SetClippingRect(kept);
        return;
    }
    CXRect box = object->GetBoundingBox();
    if (region_.isWhole()) paintPart(element, onto, box);
    for (const CXRect & rect : region_.rects()) {
        CXRect part = rect.Common(box);
        if (part.Width() > 0 && part.Height() > 0) paintPart(element, onto, part);
        if (element.mark) return;
    }
}

void CRefreshScreen::paintPart(CValidationElement & element, CDirectDrawSurface * onto, CXRect part) {
    CGraphicsObject * object = element.object;
    object->SetDestiny(onto);
    CXRect own = object->GetClippingRect();
    bool clips = own.left != own.right && own.top != own.bottom;
    if (!clips) object->SetClippingRect(part + object->ClientCoords(CXPoint(0, 0)));
    object->Redraw();
    if (!clips) object->SetClippingRect(CXRect(0));
    element.mark = part.Width() == object->Width() && part.Height() == object->Height();
}

// ---------------------------------------------------------------------------------------------- observers

void CRefreshScreen::addNotifier(CCanvasObserver * observer) {
    if (std::ranges::find(observers_, observer) == observers_.end()) observers_.push_back(observer);
}

void CRefreshScreen::removeNotifier(CCanvasObserver * observer) { std::erase(observers_, observer); }

void CRefreshScreen::notify(int code) {
    constexpr void (CCanvasObserver::*kCalls[])() = {
        &CCanvasObserver::onInitialUpdate, &CCanvasObserver::onUpdate,   &CCanvasObserver::onUpdated,
        &CCanvasObserver::onFocusOn,       &CCanvasObserver::onFocusOff, &CCanvasObserver::onInitialUpdated};
    for (CCanvasObserver * each : std::vector<CCanvasObserver *>(observers_)) // a script may take one off
        if (std::ranges::find(observers_, each) != observers_.end()) (each->*kCalls[code])();
}

void CRefreshScreen::_catch() {
    if (caught_ || !destination_) return;
    caught_ = std::make_unique<CDirectDrawSurface>(window_, CXSize(width_, height_), bpp_);
    destination_->Blt(caught_.get(), 0, 0, screen());
}
