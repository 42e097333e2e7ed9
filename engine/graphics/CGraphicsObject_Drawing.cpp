// How an object comes onto another one, and who hears of its changes.

#include "core/CXArray.h"
#include "files/CDataBuffer.h"
#include "graphics/CCanvasIfc.h"
#include "graphics/CGraphicsObject.h"
#include "graphics/CValidationQuene.h"

#include <algorithm>
#include <cstring>
#include <vector>

void CGraphicsObject::Redraw() {
    if (backup_ && isRaw16()) {
        int bytes = std::min(backup_->getMemoryUsage(), __get_data_size(width_, height_, bpp_));
        std::memcpy(data_, backup_->getData(), static_cast<std::size_t>(bytes));
    }
    if (drawn_)
        for (int i = 0; i < drawn_->size; i++) drawn_->element(i)->object->redraw(this);
    if (destiny_) redraw(destiny_);
}

void CGraphicsObject::redraw(CGraphicsObject * onto) {
    if (!data_) return;
    char * pixels = onto->GetDataPtr();
    if (!pixels) return;
    if (compression_ == kCompressionRle) DeCompressRLE2();
    if (compression_ != kCompressionNone || onto->compression_ != kCompressionNone) return;
    Convert(onto->GetBpp());
    int w = onto->Width(), h = onto->Height();
    if (x_ + width_ <= 0 || y_ + height_ <= 0 || x_ >= w || y_ >= h) return;
    if (autoClip_) {
        CXRect seen(std::max(-x_, 0), std::max(-y_, 0), x_ + width_ > w ? w - x_ : width_,
                    y_ + height_ > h ? h - y_ : height_);
        if (seen.left >= seen.right || seen.top >= seen.bottom) return;
        if (!clippingRect_.IsEmpty()) {
            seen = clippingRect_.Common(seen);
            if (seen.IsEmpty()) return; // an empty rectangle would mean none
        }
        clippingRect_ = seen; // stays: who wants the old one back saves it
    }
    _canvas from;
    from.data = data_;
    from.alpha = channels_[3];
    from.bpp = bpp_;
    from.x = x_;
    from.y = y_;
    from.width = width_;
    from.height = height_;
    from.rect = clippingRect_;
    _canvas to;
    to.data = pixels;
    to.alpha = onto->channels_[3];
    to.bpp = onto->GetBpp();
    to.width = w;
    to.height = h;
    to.rect = viewport_;
    if (opacity_ != 255)
        __copy_blend(from, to, opacity_);
    else if (to.alpha)
        copyToCanvas(from, to);
    else if (!from.alpha)
        __copy(from, to);
    else if (alphaAsMask_)
        __copy_alpha_as_mask(from, to);
    else
        __copy_alpha(from, to);
}

void CGraphicsObject::Visible(bool on) {
    if (!window_) return;
    visible_ = on;
    Invalidate();
}

void CGraphicsObject::Invalidate() {
    CXRect box = GetBoundingBox();
    tellCanvas(box);
    notifyInvalidate(&box);
    invalidated_ = true;
}

void CGraphicsObject::Invalidate(CXRect * rect) {
    CXRect part = GetBoundingBox().Common(*rect);
    if (part.IsEmpty()) return;
    tellCanvas(part);
    notifyInvalidate(&part);
    invalidated_ = true;
}

bool CGraphicsObject::isInvalidated() {
    bool was = invalidated_;
    invalidated_ = false;
    return was;
}

void CGraphicsObject::addInvalidateObserver(CInvalidateObserver * observer) {
    if (!observers_) observers_ = new CXArray(101, 0.75F);
    if (!observers_->contains(observer)) observers_->add(observer);
}

void CGraphicsObject::removeInvalidateObserver(CInvalidateObserver * observer) {
    if (observers_) observers_->remove(observer);
}

void CGraphicsObject::notifyInvalidate(CXRect * rect) {
    if (!observers_) return;
    for (int i = 0; i < observers_->size; i++)
        static_cast<CInvalidateObserver *>(observers_->at(i))->onInvalidate(this, rect);
}

void CGraphicsObject::handOver(CGraphicsObject * fresh) {
    if (!observers_) return;
    for (void * each : std::vector<void *>(observers_->begin(), observers_->end()))
        if (observers_->contains(each)) static_cast<CInvalidateObserver *>(each)->onReplaced(this, fresh);
}

void CGraphicsObject::onInvalidate(CGraphicsObject *, CXRect * rect) { Invalidate(rect); }

void CGraphicsObject::onDestroy(CGraphicsObject * object) {
    removeInvalidateObserver(object);
    removeObject(object);
}

void CGraphicsObject::addObject(CGraphicsObject * object, int priority) {
    if (!drawn_) drawn_ = new CValidationQuene;
    if (!drawn_->find(object)) {
        drawn_->add(object, priority, 0);
        object->addInvalidateObserver(this);
    }
    if (!backup_ && isRaw16()) backup_ = new CDataBuffer2Dim(data_, {width_, height_}, 2);
}

void CGraphicsObject::removeObject(CGraphicsObject * object) {
    if (!drawn_ || !drawn_->find(object)) return;
    drawn_->remove(object);
    object->removeInvalidateObserver(this);
    if (drawn_->size > 0) return;
    endDrawn();
    delete backup_;
    backup_ = nullptr;
}

void CGraphicsObject::removeAllObjects() {
    if (!drawn_) return;
    for (int i = 0; i < drawn_->size; i++) drawn_->element(i)->object->removeInvalidateObserver(this);
    endDrawn();
}

void CGraphicsObject::endDrawn() {
    delete drawn_;
    drawn_ = nullptr;
}
