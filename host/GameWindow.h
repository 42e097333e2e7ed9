#pragma once

// The engine's window in the system's: messages become its calls, its cursors are the system's. Without a
// system's window, in a headless world, it shows nothing.

#include "app/CWindow.h"
#include "platform/window/SystemWindow.h"

namespace host {

class GameWindow : public CWindow {
public:
    using Message = platform::SystemWindow::Message;

    // rawMouse: the engine reads the mouse as a device, on a thread of its own.
    GameWindow(platform::SystemWindow * system, CCommandLine6 * commandLine, CLanguageOSVer * language,
               const CXString & exePath, bool rawMouse);

    // Hands on what happened; true when the game is to end.
    bool pump();
    bool tell(const Message & message);

    void showCursorImage(HCURSOR cursor) override;
    void ShowCursor() override { count(1); }
    void HideCursor() override { count(-1); }
    void minimize() override;

private:
    void count(int by);

    platform::SystemWindow * system_; // null in a headless world
    bool rawMouse_;
    std::vector<Message> messages_; // of one pump
};

} // namespace host
