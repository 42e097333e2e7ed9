// Coming and going, frames, and how the one on show gets onto the screen.

#include "graphics/CAnimo.h"

#include "app/CApplication.h"
#include "app/CWindow.h"
#include "graphics/CAnimationManager.h"
#include "graphics/CAnimo_Watch.h"
#include "graphics/CCanvasIfc.h"
#include "graphics/CFrame.h"

#include <algorithm>

FrameSound::Maker FrameSound::load = nullptr;
FrameSound::Maker FrameSound::stream = nullptr;

namespace {

CAnimationManager * managerOf(CWindow * window) {
    CApplication * application = window ? window->getApplication() : nullptr;
    return application ? application->getAnimoManagerIfc() : nullptr;
}

} // namespace

CAnimo::CAnimo(CWindow * window) : CGraphicsObject(window), CPlayable(window) {
    ownsPixels_ = false;
    if (CAnimationManager * manager = managerOf(window)) manager->add(this, GetCanvas());
}

CAnimo::CAnimo(CWindow * window, const CXString & name) : CAnimo(window) { CAnimo::Load(name); }

CAnimo::CAnimo(CAnimo & shared)
    : CGraphicsObject(shared.window_, shared),
      CPlayable(shared.window_),
      events_(shared.events_),
      index_(shared.index_),
      author_(shared.author_),
      description_(shared.description_),
      current_(shared.current_),
      currentEvent_(shared.currentEvent_),
      lastPlayed_(shared.lastPlayed_),
      animoFlags_(shared.animoFlags_),
      globalPosition_(shared.globalPosition_),
      direction_(shared.direction_),
      fps_(shared.fps_),
      randomFrames_(shared.randomFrames_),
      loadAtStart_(shared.loadAtStart_),
      turned_(shared.turned_),
      shownOpacity_(shared.shownOpacity_) {
    CPlayable::operator=(shared);
    CPlayable::status_ = kStopped; // it isn't played yet
    for (_annEventInfo3 & event : events_) event.loopCounter = 0;
    for (const auto & frame : shared.frames_) frames_.push_back(std::make_unique<CFrame>(window_, *frame));
    CAnimo::updateWithCurrentFrame();
    if (CAnimationManager * manager = managerOf(window_)) manager->add(this, nullptr);
}

CAnimo::~CAnimo() {
    if (gone_) *gone_ = true;
    if (CAnimationManager * manager = managerOf(window_)) manager->remove(this);
    CAnimo::Flush();
}

void CAnimo::Flush() {
    silence(true);
    animoStatus_ = kAnimoStopped;
    CPlayable::status_ = kStopped;
    dropMirror();
    CGraphicsObject::Flush();
    ownsPixels_ = false;
    frames_.clear();
    events_.clear();
    width_ = height_ = 0;
    current_ = currentEvent_ = lastPlayed_ = index_ = 0;
    lastDrawn_ = -1;
    shownOpacity_ = 255;
    CFileResolver::release();
}

// The planes that the pixel fields point to are a frame's, unless an effect replaced them.
void CAnimo::dropMirror() {
    if (ownsPixels_) {
        delete[] data_;
        delete[] channels_[3];
    }
    ownsPixels_ = false;
    data_ = nullptr;
    channels_[3] = nullptr;
    channelSizes_[3] = 0;
    rawSize_ = colourSize_ = spareSize_ = 0;
    compression_ = kCompressionNone;
}

void CAnimo::mirror(CFrame * frame) {
    data_ = frame->GetDataPtr();
    channels_[3] = frame->GetChannelAlpha();
    channelSizes_[3] = frame->GetChannelSize(3);
    colourSize_ = spareSize_ = static_cast<int>(frame->colourBytes().size());
    bpp_ = frame->GetBpp();
    width_ = frame->getWidth();
    height_ = frame->getHeight();
    pitch_ = width_;
    rawSize_ = __get_data_size(width_, height_, bpp_);
    compression_ = frame->GetCompression();
}

void CAnimo::updateWithCurrentFrame() {
    dropMirror();
    CFrame * frame = GetFrame(current_);
    if (!frame) return;
    mirror(frame);
    CXPoint at = frame->GetFramePosition();
    if (const _anmFrameInfo3 * info = getFrameInfo(currentEvent_, index_))
        at = at + CXPoint(info->x, info->y);
    x_ = at.x;
    y_ = at.y;
}

// ---- frames

CFrame * CAnimo::GetFrame(int frame) const {
    return frame >= 0 && frame < GetNOF() ? frames_[at(frame)].get() : nullptr;
}

CFrame * CAnimo::getFrame(const CXString & name) const {
    for (const _annEventInfo3 & event : events_)
        for (std::size_t i = 0; i < event.infos.size(); i++)
            if (event.infos[i].name.equalsIgnoreCase(name)) return GetFrame(event.frames[i]);
    return nullptr;
}

CXPoint CAnimo::getCurrFramePosition() const {
    CFrame * frame = GetFrame(current_);
    return frame ? frame->GetFramePosition() : CXPoint();
}

void CAnimo::AddFrame(CGraphicsObject * picture) {
    auto frame = std::make_unique<CFrame>(window_);
    frame->Copy(picture);
    frame->SetPosition(frame->getPosition());
    if (frames_.empty()) bpp_ = frame->GetBpp();
    frames_.push_back(std::move(frame));
    updateWithCurrentFrame();
}

void CAnimo::RemoveFrame(int frame) {
    if (!GetFrame(frame)) return;
    Invalidate();
    dropMirror();
    frames_.erase(frames_.begin() + frame);
    for (_annEventInfo3 & event : events_)
        for (std::size_t i = event.frames.size(); i-- > 0;) {
            auto place = static_cast<std::ptrdiff_t>(i);
            if (event.frames[i] == frame) {
                event.frames.erase(event.frames.begin() + place);
                event.infos.erase(event.infos.begin() + place);
            } else if (event.frames[i] > frame) {
                event.frames[i]--;
            }
        }
    if (current_ > frame || current_ >= GetNOF()) current_ = std::max(current_ - 1, 0);
    if (lastDrawn_ == frame) lastDrawn_ = -1;
    if (lastDrawn_ > frame) lastDrawn_--;
    updateWithCurrentFrame();
}

void CAnimo::eachFrame(const std::function<void(CFrame &)> & act) {
    for (auto & frame : frames_) act(*frame);
    updateWithCurrentFrame();
}

void CAnimo::FlipH() {
    eachFrame([](CFrame & frame) { frame.FlipH(); });
    flippedH_ = !flippedH_;
}

void CAnimo::FlipV() {
    eachFrame([](CFrame & frame) { frame.FlipV(); });
    flippedV_ = !flippedV_;
}

void CAnimo::resetFlips() {
    eachFrame([](CFrame & frame) { frame.resetFlips(); });
    flippedH_ = flippedV_ = false;
}

void CAnimo::replace_color(short from, short to) {
    eachFrame([&](CFrame & frame) { frame.replace_color(from, to); });
}

void CAnimo::pack(bool free) {
    eachFrame([&](CFrame & frame) { frame.pack(free); });
    unpacked_ = false;
}

void CAnimo::unpack() {
    std::int64_t bytes = 0;
    for (const auto & frame : frames_)
        bytes +=
            std::int64_t{__get_data_size(frame->getWidth(), frame->getHeight(), frame->GetBpp())} * 3 / 2;
    if (bytes > kKeptMemory) {
        CWindow::toLog("CAnimo -> " + getFileName() + " is too large to be kept expanded\n", false);
        return;
    }
    eachFrame([](CFrame & frame) { frame.unpack(); });
    unpacked_ = true;
}

void CAnimo::DeCompress() {
    if (CFrame * frame = GetFrame(current_)) frame->DeCompress();
    updateWithCurrentFrame();
}

// While observers hear of a new frame, the pixels are still the old one's.
bool CAnimo::mirrors(CFrame * frame) const { return frame && data_ && frame->GetDataPtr() == data_; }

void CAnimo::decodeFrame(CFrame * frame) {
    bool mirrored = mirrors(frame);
    frame->DeCompress();
    if (mirrored) mirror(frame);
}

unsigned char CAnimo::GetPixel(_channel channel, CXPoint p) {
    if (compression_ != kCompressionNone && mirrors(GetFrame(current_))) DeCompress();
    return CGraphicsObject::GetPixel(channel, p);
}

CColor CAnimo::GetPixel(int x, int y) {
    if (compression_ != kCompressionNone && mirrors(GetFrame(current_))) {
        DeCompress();
        DeCompressRLE2();
    }
    return CGraphicsObject::GetPixel(x, y);
}

void CAnimo::DeCompressRLE2() {
    CFrame * frame = GetFrame(current_);
    if (!frame) return;
    if (lastDrawn_ != current_)
        if (CFrame * last = GetFrame(lastDrawn_)) last->bringBackCompressed();
    lastDrawn_ = current_;
    frame->DeCompressRLE2();
    updateWithCurrentFrame();
}

void CAnimo::bringBackCompressed() {
    if (CFrame * frame = GetFrame(current_)) frame->bringBackCompressed();
    updateWithCurrentFrame();
}

// ---- on the screen

CXPoint CAnimo::GetPosition() { return CXPoint(x_, y_) + globalPosition_; }

CXRect CAnimo::getRect() {
    CXPoint p = GetPosition();
    return {p.x, p.y, p.x + width_, p.y + height_};
}

void CAnimo::SetPosition(int x, int y) {
    globalPosition_ = {place(std::int64_t{x} - anchor_.x), place(std::int64_t{y} - anchor_.y)};
    onMoved();
}

void CAnimo::Move(int dx, int dy) {
    CXRect box = GetBoundingBox();
    globalPosition_ = {place(std::int64_t{globalPosition_.x} + dx),
                       place(std::int64_t{globalPosition_.y} + dy)};
    tellCanvas(box.Sum(GetBoundingBox()));
    invalidated_ = true;
    onMoved();
}

void CAnimo::redraw(CGraphicsObject * onto) {
    CFrame * frame = GetFrame(current_);
    if (!frame) return;
    if (lastDrawn_ != current_) // only the frame on show stays expanded
        if (CFrame * last = GetFrame(lastDrawn_)) last->bringBackCompressed();
    CXRect clip = frame->GetClippingRect();
    CXPoint own = frame->getPosition(), here = GetPosition();
    frame->SetClippingRect(clippingRect_);
    frame->SetViewport(viewport_);
    frame->SetAutoClip(autoClip_);
    frame->setAlphaAsMask(alphaAsMask_);
    frame->CGraphicsObject::SetPosition(here.x, here.y);
    frame->SetOpacity(opacity_ == 255 ? shownOpacity_ : opacity_);
    frame->redraw(onto);
    frame->CGraphicsObject::SetPosition(own.x, own.y);
    frame->SetClippingRect(clip);
    lastDrawn_ = current_;
    updateWithCurrentFrame();
}

void CAnimo::show() {
    if (!isLoaded() && getFileName().IsString()) Load(getFileName());
    Visible(true);
}

void CAnimo::hide() {
    if (isToRelease()) {
        Invalidate();
        Flush();
    }
    Visible(false);
}

void CAnimo::retire() {
    Flush();
    if (canvas_) *canvas_ >> this;
}
