#pragma once

// The mouse of a person's window: the pointer in the picture, and its steps there as those of a device. The
// window's events move it.

#include "platform/input/Mouse.h"
#include "platform/thread/Mutex.h"

namespace platform {

class SdlDisplay;

class SdlMouse : public Mouse {
public:
    explicit SdlMouse(SdlDisplay & display) : display_(display) {}

    const char * name() const override { return "SDL"; }
    bool acquire() override;
    bool read(std::vector<Item> & items, std::size_t most) override;
    bool isDown(Part button) override;
    int x() override;
    int y() override;
    void moveTo(int x, int y) override;
    void clip(int left, int top, int right, int bottom) override;
    void unclip() override;

    // ---- what happens to the window
    void moved(int x, int y); // to a pixel of the picture
    void set(Part button, bool down);
    void focus(bool on); // without it the device is another program's
    void placed();       // the picture has another place in the window

private:
    static constexpr std::size_t kKept = 256; // items that wait for a reader

    void push(Item item) REQUIRES(mutex_);

    SdlDisplay & display_;
    bool clips_ = false;
    int left_ = 0, top_ = 0, right_ = 0, bottom_ = 0; // where it is kept
    int x_ = 0, y_ = 0;                               // the sum of the steps
    Mutex mutex_;
    std::vector<Item> items_ GUARDED_BY(mutex_);
    bool focused_ GUARDED_BY(mutex_) = true, lost_ GUARDED_BY(mutex_) = false;
};

} // namespace platform
