#include "platform/window/SdlWindow.h"

#include "platform/display/SdlDisplay.h"
#include "platform/input/SdlJoysticks.h"
#include "platform/input/SdlKeyboard.h"
#include "platform/input/SdlMouse.h"
#include "platform/text/Windows1250.h"

#include <SDL2/SDL.h>

namespace platform {

SdlWindow::~SdlWindow() {
    for (SDL_Cursor * each : cursors_)
        if (each) SDL_FreeCursor(each);
}

void SdlWindow::poll(Messages & messages) {
    if (!display_.window()) return;
    if (!isStarted_) {
        isStarted_ = true;
        joysticks_.start();
        SDL_StartTextInput();
    }
    SDL_Event event;
    while (SDL_PollEvent(&event)) handle(event, messages);
    joysticks_.update();
}

void SdlWindow::handle(const SDL_Event & event, Messages & messages) {
    switch (event.type) {
    case SDL_QUIT: messages.push_back({.kind = Message::kClose}); break; // of the last window
    case SDL_WINDOWEVENT: handleWindow(event.window, messages); break;
    case SDL_MOUSEMOTION: {
        Message move = at(Message::kMove, event.motion.x, event.motion.y);
        mouse_.moved(move.x, move.y);
        // Of moves with nothing in between only the last counts.
        if (!messages.empty() && messages.back().kind == Message::kMove)
            messages.back() = move;
        else
            messages.push_back(move);
        break;
    }
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: handleButton(event.button, messages); break;
    case SDL_KEYDOWN:
    case SDL_KEYUP: handleKey(event.key); break;
    case SDL_TEXTINPUT: type(event.text.text, messages); break;
    case SDL_JOYDEVICEADDED:
    case SDL_JOYDEVICEREMOVED: joysticks_.handle(event); break;
    case SDL_RENDER_TARGETS_RESET:
    case SDL_RENDER_DEVICE_RESET: display_.recreate(); break;
    default: break;
    }
}

void SdlWindow::handleWindow(const SDL_WindowEvent & event, Messages & messages) {
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        display_.uncover();
        mouse_.placed();
        break;
    case SDL_WINDOWEVENT_MOVED:
        messages.push_back({.kind = Message::kMoved, .x = event.data1, .y = event.data2});
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
    case SDL_WINDOWEVENT_FOCUS_LOST: {
        bool on = event.event == SDL_WINDOWEVENT_FOCUS_GAINED;
        mouse_.focus(on);
        messages.push_back({.kind = Message::kFocus, .value = on});
        break;
    }
    default: break;
    }
}

void SdlWindow::handleButton(const SDL_MouseButtonEvent & event, Messages & messages) {
    static constexpr struct {
        int button, told;
        Mouse::Part part;
    } kButtons[] = {{SDL_BUTTON_LEFT, 0, Mouse::kLeft},
                    {SDL_BUTTON_MIDDLE, 1, Mouse::kMiddle},
                    {SDL_BUTTON_RIGHT, 2, Mouse::kRight}};
    bool isDown = event.state == SDL_PRESSED;
    for (const auto & each : kButtons) {
        if (each.button != event.button) continue;
        mouse_.set(each.part, isDown);
        bool isDouble = isDown && each.told == 0 && event.clicks % 2 == 0;
        Message message = at(isDouble ? Message::kDoubleClick
                             : isDown ? Message::kDown
                                      : Message::kUp,
                             event.x, event.y);
        message.button = each.told;
        messages.push_back(message);
    }
}

void SdlWindow::handleKey(const SDL_KeyboardEvent & event) {
    if (event.repeat) return; // the engine repeats keys by itself
    bool isDown = event.state == SDL_PRESSED;
    if (isDown && event.keysym.scancode == SDL_SCANCODE_RETURN && (event.keysym.mod & KMOD_ALT) != 0) {
        display_.toggleFullScreen();
        mouse_.placed();
    } else if (int code = SdlKeyboard::codeOf(event.keysym.scancode)) {
        keyboard_.set(code, isDown);
    }
}

SdlWindow::Message SdlWindow::at(Message::Kind kind, int x, int y) const {
    const Placement & placement = display_.placement();
    return {.kind = kind, .x = placement.toPictureX(x), .y = placement.toPictureY(y)};
}

// Characters that games can't write are left out.
void SdlWindow::type(std::string_view utf8, Messages & messages) {
    if (!fitsWindows1250(utf8)) return;
    for (char c : fromUtf8(utf8))
        if (auto byte = static_cast<unsigned char>(c); byte >= ' ')
            messages.push_back({.kind = Message::kCharacter, .value = byte});
}

void SdlWindow::present() { display_.present(); }

// ------------------------------------------------------------------------------------------------- the
// cursor

void SdlWindow::setCursor(Cursor cursor) {
    cursor_ = cursor;
    showCursor();
}

void SdlWindow::countCursor(int by) {
    cursorCount_ += by;
    showCursor();
}

void SdlWindow::showCursor() {
    if (!display_.window()) return;
    static constexpr SDL_SystemCursor kImages[] = {SDL_SYSTEM_CURSOR_ARROW, SDL_SYSTEM_CURSOR_ARROW,
                                                   SDL_SYSTEM_CURSOR_HAND, SDL_SYSTEM_CURSOR_WAIT};
    auto which = static_cast<std::size_t>(cursor_);
    if (!cursors_[which]) cursors_[which] = SDL_CreateSystemCursor(kImages[which]);
    if (cursors_[which]) SDL_SetCursor(cursors_[which]);
    SDL_ShowCursor(cursor_ != Cursor::none && cursorCount_ >= 0 ? SDL_ENABLE : SDL_DISABLE);
}

void SdlWindow::setFrame(bool on) {
    if (display_.window()) SDL_SetWindowBordered(display_.window(), on ? SDL_TRUE : SDL_FALSE);
}

void SdlWindow::minimize() {
    if (display_.window()) SDL_MinimizeWindow(display_.window());
}

} // namespace platform
