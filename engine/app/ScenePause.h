#pragma once

// Stopping and continuing a running game from a script.

class CWindow;

namespace scenepause {

void pause(CWindow * window, bool timersToo);
void resume(CWindow * window, bool timersToo);

} // namespace scenepause
