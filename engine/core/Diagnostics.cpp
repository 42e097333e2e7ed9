#include "core/Diagnostics.h"

#include "platform/World.h"

namespace {

bool msgBoxFlag = true;

} // namespace

void dispMsgBox(HWND, const CXString & text) {
    if (msgBoxFlag) platform::world().dialogs->messageBox("Tarnook", std::string(text.view()));
}

void setMsgBoxFlag(bool on) { msgBoxFlag = on; }
bool isMsgBox() { return msgBoxFlag; }
void clearMsgBoxFlag() { msgBoxFlag = false; }
