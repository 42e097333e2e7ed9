#include "GameWindow.h"

#include "app/CCommandLine6.h"

#include <cstdint>
#include <utility>

namespace host {

namespace {

using Cursor = platform::SystemWindow::Cursor;

// The engine's cursor handles are our own: the numbers of the system's cursors, and null for none.
HCURSOR handle(Cursor cursor) { return reinterpret_cast<HCURSOR>(static_cast<std::uintptr_t>(cursor)); }

Cursor cursorOf(HCURSOR handle) { return static_cast<Cursor>(reinterpret_cast<std::uintptr_t>(handle)); }

} // namespace

GameWindow::GameWindow(platform::SystemWindow * system, CCommandLine6 * commandLine,
                       CLanguageOSVer * language, const CXString & exePath, bool rawMouse)
    : CWindow(nullptr, commandLine, language, commandLine->getResolution(), handle(Cursor::arrow), exePath,
              !rawMouse),
      system_(system),
      rawMouse_(rawMouse) {
    SetActiveCursor(handle(Cursor::hand));
    SetWaitCursor(handle(Cursor::wait));
}

bool GameWindow::pump() {
    if (!system_) return false;
    messages_.clear();
    system_->poll(messages_);
    bool over = false;
    for (const Message & each : messages_) over = over || tell(each);
    return over;
}

bool GameWindow::tell(const Message & message) {
    static constexpr int (CWindow::*kDown[])(CXPoint, int) = {
        &CWindow::OnLButtonDown, &CWindow::OnMButtonDown, &CWindow::OnRButtonDown};
    static constexpr int (CWindow::*kUp[])(CXPoint, int) = {&CWindow::OnLButtonUp, &CWindow::OnMButtonUp,
                                                            &CWindow::OnRButtonUp};
    CXPoint point(message.x, message.y);
    // Marked as a message to be ignored where the device tells the same. No device tells of double clicks.
    int flags = rawMouse_ ? 1 : 0;
    switch (message.kind) {
    case Message::kMove: OnMouseMove(point, flags); break;
    case Message::kDown: (this->*kDown[message.button])(point, flags); break;
    case Message::kUp: (this->*kUp[message.button])(point, flags); break;
    case Message::kDoubleClick: OnLButtonDblClk(point, flags); break;
    case Message::kCharacter: OnChar(message.value, 0); break;
    case Message::kFocus: OnActivateApp(message.value != 0); break;
    case Message::kMoved: OnMove(message.x, message.y); break;
    case Message::kClose: return OnExit();
    }
    return false;
}

void GameWindow::showCursorImage(HCURSOR cursor) {
    if (system_) system_->setCursor(cursorOf(cursor));
}

void GameWindow::count(int by) {
    if (system_) system_->countCursor(by);
}

void GameWindow::minimize() {
    if (system_) system_->minimize();
}

} // namespace host
