#include "platform/input/SdlMouse.h"

#include "platform/display/SdlDisplay.h"

#include <SDL2/SDL.h>
#include <algorithm>

namespace platform {

// ------------------------------------------------------------------------------------------------ the device

bool SdlMouse::acquire() {
    Lock hold(mutex_);
    lost_ = !focused_;
    return focused_;
}

bool SdlMouse::read(std::vector<Item> & items, std::size_t most) {
    Lock hold(mutex_);
    if (lost_) return false;
    auto end = items_.begin() + static_cast<std::ptrdiff_t>(std::min(most, items_.size()));
    items.insert(items.end(), items_.begin(), end);
    items_.erase(items_.begin(), end);
    return true;
}

void SdlMouse::push(Item item) {
    if (items_.size() < kKept) items_.push_back(item);
}

void SdlMouse::moved(int x, int y) {
    Lock hold(mutex_);
    if (items_.size() + 2 > kKept) return; // the next move tells of all steps
    if (x != x_) push({kAxisX, x - x_});
    if (y != y_) push({kAxisY, y - y_});
    x_ = x;
    y_ = y;
}

void SdlMouse::set(Part button, bool down) {
    Lock hold(mutex_);
    push({button, down ? kDown : 0});
}

void SdlMouse::focus(bool on) {
    Lock hold(mutex_);
    focused_ = on;
    if (!on) lost_ = true;
}

// ----------------------------------------------------------------------------------------------- the pointer

bool SdlMouse::isDown(Part button) {
    Uint32 down = SDL_GetMouseState(nullptr, nullptr);
    return (down & SDL_BUTTON(button == kLeft     ? SDL_BUTTON_LEFT
                              : button == kMiddle ? SDL_BUTTON_MIDDLE
                                                  : SDL_BUTTON_RIGHT)) != 0;
}

int SdlMouse::x() {
    int x = 0;
    SDL_GetMouseState(&x, nullptr);
    return display_.placement().toPictureX(x);
}

int SdlMouse::y() {
    int y = 0;
    SDL_GetMouseState(nullptr, &y);
    return display_.placement().toPictureY(y);
}

void SdlMouse::moveTo(int x, int y) {
    if (display_.window())
        SDL_WarpMouseInWindow(display_.window(), display_.placement().toWindowX(x),
                              display_.placement().toWindowY(y));
}

void SdlMouse::clip(int left, int top, int right, int bottom) {
    clips_ = left < right && top < bottom;
    left_ = left;
    top_ = top;
    right_ = right;
    bottom_ = bottom;
    placed();
}

void SdlMouse::unclip() {
    clips_ = false;
    placed();
}

void SdlMouse::placed() {
    if (!display_.window()) return;
    const Placement & to = display_.placement();
    SDL_Rect rect = {to.edgeX(left_), to.edgeY(top_), 0, 0};
    rect.w = to.edgeX(right_) - rect.x;
    rect.h = to.edgeY(bottom_) - rect.y;
    SDL_SetWindowMouseRect(display_.window(), clips_ ? &rect : nullptr);
    if (!clips_) return;
    int atX = std::clamp(x(), left_, right_ - 1), atY = std::clamp(y(), top_, bottom_ - 1);
    if (atX != x() || atY != y()) moveTo(atX, atY); // SDL only keeps it from going out
}

} // namespace platform
