#pragma once

// Message boxes: the one way script mistakes reach a person. (The log is CWindow::toLog.)

#include "core/CXString.h"

using HWND = void *; // the host's window; null where there is none

// Shows a text and waits for the answer; nothing while the message box flag is cleared.
void dispMsgBox(HWND window, const CXString & text);

void setMsgBoxFlag(bool on); // true at start
bool isMsgBox();
void clearMsgBoxFlag();
