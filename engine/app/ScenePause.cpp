#include "app/ScenePause.h"

#include "app/CApplication.h"
#include "app/CWindow.h"
#include "graphics/CAnimationManager.h"
#include "script/Lifetime.h"
#include "sound/CSoundManager.h"

void scenepause::pause(CWindow * window, bool timersToo) {
    if (CWindow::isPaused()) return;
    if (CApplication * application = window->getApplication()) {
        application->getAnimoManagerIfc()->pause();
        application->getSoundManagerIfc()->pause();
    }
    CWindow::pause();
    if (!timersToo) return;
    window->getTimer()->pause();
    CXTimer::enable(false);
}

void scenepause::resume(CWindow * window, bool timersToo) {
    if (!CWindow::isPaused()) return;
    life::Guard guard; // sounds tell that they go on
    CWindow::resume();
    if (CApplication * application = window->getApplication()) {
        application->getAnimoManagerIfc()->resume(nullptr);
        application->getSoundManagerIfc()->resume();
    }
    if (!timersToo) return;
    window->getTimer()->resume();
    CXTimer::enable(true);
}
