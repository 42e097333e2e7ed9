#pragma once

// A file of input events, one a line, for headless runs: "TICK EVENT ARGUMENTS", in rising order of ticks;
// "#" starts a comment.

#include "GameWindow.h"

#include <string>
#include <vector>

namespace host {

class InputScript {
public:
    // Reads the file. Lines that are no events are left out, each told on standard error with its number and
    // the reason; false when the file can't be read.
    bool load(const std::string & file);
    // Hands the events of a tick to the window, behind the move of a pointer that the game set; true when one
    // of them closes the game.
    bool play(long tick, GameWindow & window);

private:
    struct Event {
        long tick = 0;
        enum { kMessage, kKeyDown, kKeyUp } kind = kMessage;
        GameWindow::Message message; // or in its value the key's code
    };

    static std::string parse(const std::string & line, Event & event); // the mistake, empty for none
    static bool tell(Event event, GameWindow & window);

    std::vector<Event> events_;
    std::size_t next_ = 0;
};

} // namespace host
