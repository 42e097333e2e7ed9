#include "files/CFileResolver.h"

#include "app/CWindow.h"

void CFileResolver::log(const char * text, bool toDebugger) { CWindow::toLog(text, toDebugger); }
