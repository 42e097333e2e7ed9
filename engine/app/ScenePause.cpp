#include "app/ScenePause.h"

#include "app/CWindow.h"

void scenepause::pause(CWindow * window, bool timersToo) {
    if (CWindow::isPaused()) return;
    CWindow::pause();
    if (!timersToo) return;
    window->getTimer()->pause();
    CXTimer::enable(false);
}

void scenepause::resume(CWindow * window, bool timersToo) {
    if (!CWindow::isPaused()) return;
    CWindow::resume();
    if (!timersToo) return;
    window->getTimer()->resume();
    CXTimer::enable(true);
}
