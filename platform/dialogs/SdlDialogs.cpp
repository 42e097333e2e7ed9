#include "platform/dialogs/SdlDialogs.h"

#include "platform/display/SdlDisplay.h"
#include "platform/text/Windows1250.h"

#include <SDL2/SDL.h>

namespace platform {

namespace {

// The program's own box doesn't take the focus away from the program.
int withoutFocus(void *, SDL_Event * event) {
    return event->type != SDL_WINDOWEVENT || (event->window.event != SDL_WINDOWEVENT_FOCUS_LOST &&
                                              event->window.event != SDL_WINDOWEVENT_FOCUS_GAINED);
}

} // namespace

void SdlDialogs::messageBox(const std::string & title, const std::string & text) {
    SDL_Window * window = display_.window();
    if (!window) return TerminalDialogs::messageBox(title, text);
    display_.present(); // what led to the box is seen behind it
    const std::string caption = toUtf8(title), words = toUtf8(text);
    bool shown =
        SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_INFORMATION, caption.c_str(), words.c_str(), window) == 0;
    if (!shown) return TerminalDialogs::messageBox(title, text);
    SDL_PumpEvents();
    SDL_FilterEvents(withoutFocus, nullptr);
}

} // namespace platform
