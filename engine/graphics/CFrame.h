#pragma once

// One picture of an animation. Its planes stay coded until it is shown. The thread of the tick.

#include "graphics/CGraphicsObject.h"

class CFrame : public CGraphicsObject {
public:
    explicit CFrame(CWindow * window) : CGraphicsObject(window) {}
    CFrame(CWindow * window, CFrame & shared); // a sharing copy: shared must live longer
    CGraphicsObject * clone() override { return new CFrame(window_, *this); }

    using CGraphicsObject::Move;
    using CGraphicsObject::SetPosition;
    void SetPosition(int x, int y) override; // no offset any more
    void Move(int dx, int dy) override;      // position and offset
    CXPoint GetPosition() override { return framePosition_; }
    CXPoint GetFramePosition() const { return framePosition_; }
    CXPoint getPosOffset() const { return posOffset_; }
    void SetPosOffset(CXPoint offset) { posOffset_ = offset; }

    using CGraphicsObject::redraw;
    void redraw(CGraphicsObject * onto) override; // expands the planes first

    // What a loader found: copies of the planes, padded with zeros when they are raw and too short.
    void take(CXSize size, CXPoint at, int depth, _compression compression, std::string_view colour,
              std::string_view alpha);
    int getVersion() const { return version_; }
    void setVersion(int version) { version_ = version; }
    // The planes as they are held.
    std::string_view colourBytes() const;
    std::string_view alphaPlaneBytes() const;

private:
    int version_ = 0; // the layout that it came from
    CXPoint posOffset_;
    CXPoint framePosition_;
};
