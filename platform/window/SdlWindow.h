#pragma once

// The window that SdlDisplay shows its picture in, and the pump of all that SDL tells. Alt and Enter change
// between the window and the whole screen; the game doesn't hear of that Enter. Main thread.

#include "platform/window/SystemWindow.h"

#include <array>
#include <string_view>

union SDL_Event;
struct SDL_Cursor;
struct SDL_KeyboardEvent;
struct SDL_MouseButtonEvent;
struct SDL_WindowEvent;

namespace platform {

class SdlDisplay;
class SdlJoysticks;
class SdlKeyboard;
class SdlMouse;

class SdlWindow : public SystemWindow {
public:
    // The devices that it feeds; none is owned, all are longer there.
    SdlWindow(SdlDisplay & display, SdlMouse & mouse, SdlKeyboard & keyboard, SdlJoysticks & joysticks)
        : display_(display), mouse_(mouse), keyboard_(keyboard), joysticks_(joysticks) {}
    SdlWindow(const SdlWindow &) = delete;
    SdlWindow & operator=(const SdlWindow &) = delete;
    ~SdlWindow() override;

    const char * name() const override { return "SDL"; }
    void poll(std::vector<Message> & messages) override;
    void present() override;
    void setCursor(Cursor cursor) override;
    void countCursor(int by) override;
    void setFrame(bool on) override;
    void minimize() override;

private:
    using Messages = std::vector<Message>;

    void handle(const SDL_Event & event, Messages & messages);
    void handleWindow(const SDL_WindowEvent & event, Messages & messages);
    void handleButton(const SDL_MouseButtonEvent & event, Messages & messages);
    void handleKey(const SDL_KeyboardEvent & event);
    Message at(Message::Kind kind, int x, int y) const; // a pixel of the window
    static void type(std::string_view utf8, Messages & messages);
    void showCursor();

    SdlDisplay & display_;
    SdlMouse & mouse_;
    SdlKeyboard & keyboard_;
    SdlJoysticks & joysticks_;
    bool isStarted_ = false;
    std::array<SDL_Cursor *, 4> cursors_ = {}; // by Cursor, made when they are shown first; owned
    Cursor cursor_ = Cursor::arrow;
    int cursorCount_ = 0;
};

} // namespace platform
